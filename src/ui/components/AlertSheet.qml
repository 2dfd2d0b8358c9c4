import QtQuick
import QtQuick.Layouts
import Vellomar

// Asks before something that is hard to take back. Return does not answer it: the answer is a button's.
Sheet {
    id: root

    required property string message
    required property string answer

    symbol: "exclamationmark.triangle.fill"
    symbolColour: Theme.alertOrange
    titleSize: 14
    minimumWidth: 480
    canConfirm: false
    initialFocus: cancelButton

    BodyText {
        text: root.message
        size: 12
        Layout.fillWidth: true
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        SecondaryButton {
            id: cancelButton
            text: qsTr("Cancel")
            capitals: false
            onClicked: root.cancelled()
        },
        ActionButton {
            text: root.answer
            capitals: false
            colour: Theme.alertRed
            edge: Theme.alertRed
            hoverFill: Qt.alpha(Theme.alertRed, 0.12)
            onClicked: root.confirmed()
        }
    ]
}
