import QtQuick
import QtQuick.Layouts
import Vellomar

// Who the program is, and what it is doing.
Rectangle {
    id: header
    objectName: "headerBar"

    required property ContentViewModel content

    implicitHeight: 72
    color: Theme.inset

    RowLayout {
        anchors {
            fill: parent
            leftMargin: 20
            rightMargin: 20
        }
        spacing: 12

        Wordmark {
            size: 15
        }
        Rectangle {
            implicitWidth: version.implicitWidth + 12
            implicitHeight: version.implicitHeight + 4
            radius: 3
            color: Theme.sidePanel
            border.color: Theme.edge

            CapitalLabel {
                id: version
                anchors.centerIn: parent
                // The chip names the version as it is, small letters and all.
                font.capitalization: Font.MixedCase
                text: "v4.6"
                size: 9
                tracking: 1
                colour: Theme.tertiaryText
            }
        }
        CapitalLabel {
            text: qsTr("VELLOMAR ORGANIZER")
            size: 10
            tracking: 2
            colour: Theme.secondaryText
            Layout.fillWidth: !paw.visible
        }
        FloppyPaw {
            id: paw
            visible: header.content.floppyMode
            onClicked: header.content.toggleFloppyMode()
        }
        Item {
            visible: paw.visible
            Layout.fillWidth: true
        }
        StatusPillView {
            isRunning: header.content.status.isRunning
            statusText: header.content.status.statusText
        }
    }
    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        height: 1
        color: Theme.hairline
    }
}
