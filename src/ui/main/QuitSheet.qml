import QtQuick
import QtQuick.Layouts
import Vellomar

// Asks before the program ends in the middle of something, and then tells what the end waits for.
Sheet {
    id: root

    required property QuitFlow quit

    symbol: "exclamationmark.triangle.fill"
    symbolColour: Theme.alertOrange
    title: root.quit.isQuitting ? qsTr("QUITTING") : qsTr("QUIT VELLOMAR?")
    titleSize: 14
    minimumWidth: 440
    visible: root.quit.isAsked || root.quit.isQuitting
    canConfirm: false
    initialFocus: stayButton
    onCancelled: root.quit.stay()

    BodyText {
        text: root.quit.question
        size: 12
        Layout.fillWidth: true
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        SecondaryButton {
            id: stayButton
            text: qsTr("STAY")
            visible: !root.quit.isQuitting
            onClicked: root.quit.stay()
        },
        PrimaryButton {
            text: qsTr("QUIT")
            visible: !root.quit.isQuitting
            onClicked: root.quit.quit()
        }
    ]
}
