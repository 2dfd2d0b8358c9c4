import QtQuick
import Vellomar

// Out of the wizard, back and forward, and how far it is.
Item {
    id: root

    required property WizardModel model
    readonly property alias forwardButton: forward

    implicitHeight: forward.implicitHeight

    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12

        TextButton {
            text: qsTr("Skip Setup")
            colour: hovered ? Theme.text : Theme.dimmerTertiaryText
            onClicked: root.model.skipSetup()
        }
        BackButton {
            visible: root.model.canGoBack
            refuge: forward
            onClicked: root.model.goBack()
        }
    }
    BodyText {
        objectName: "wizardPosition"
        anchors.centerIn: parent
        text: root.model.positionText
        size: 10
        colour: Theme.dimmerTertiaryText
        wrapMode: Text.NoWrap
    }
    PrimaryButton {
        id: forward
        objectName: "wizardForward"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.model.forwardText
        capitals: false
        // What has the focus is read out again when this changes, and so is each screen.
        Accessible.description: root.model.spokenText
        onClicked: root.model.goForward()
    }
}
