import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// Where the wizard is found again. It comes, and goes by itself or by a click.
AbstractButton {
    id: root

    required property FirstRun firstRun

    objectName: "wizardReminder"
    // How far it has come out.
    property real presence: firstRun.isReminderShown ? 1 : 0

    implicitHeight: (column.implicitHeight + 24) * presence
    visible: presence > 0
    clip: true
    text: qsTr("SETUP WIZARD AVAILABLE")
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: explanation.text
    onClicked: firstRun.dismissReminder()
    Keys.onReturnPressed: firstRun.dismissReminder()
    Keys.onEnterPressed: firstRun.dismissReminder()

    Behavior on presence {
        NumberAnimation {
            objectName: "reminderEase"
            duration: 300
            easing.type: Easing.OutQuad
        }
    }

    background: Rectangle {
        color: root.hovered ? Theme.rowTint : Theme.yellowTint
        border.width: 1
        border.color: Theme.yellow

        FocusRing {
            gap: -2
            radius: 0
            shown: root.visualFocus
        }
    }

    Item {
        anchors.fill: parent
        opacity: root.presence

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            x: 20
            name: "wand.and.stars"
            colour: Theme.yellow
            size: 18
        }
        Column {
            id: column
            anchors.verticalCenter: parent.verticalCenter
            x: 52
            width: Math.max(0, parent.width - x - 20)
            spacing: 3

            CapitalLabel {
                width: parent.width
                text: root.text
                size: 11
                colour: Theme.yellow
                font.bold: true
                Accessible.ignored: true
            }
            BodyText {
                id: explanation
                width: parent.width
                text: qsTr("You can re-run the wizard anytime using the SETUP WIZARD button in the toolbar above.")
                Accessible.ignored: true
            }
        }
    }
}
