import QtQuick
import Vellomar

// One screen of the wizard: its heading, what it asks for, and its cards.
Column {
    id: root

    required property WizardModel model

    spacing: 12

    Wordmark {
        anchors.horizontalCenter: parent.horizontalCenter
        size: 32
        visible: root.model.isWelcome
    }
    Column {
        width: parent.width
        spacing: 6
        bottomPadding: 6

        CapitalLabel {
            objectName: "wizardStep"
            text: root.model.stepText
            colour: Theme.yellow
            visible: text !== ""
        }
        BodyText {
            objectName: "wizardTitle"
            width: parent.width
            horizontalAlignment: root.model.isWelcome ? Text.AlignHCenter : Text.AlignLeft
            text: root.model.title
            size: root.model.isWelcome ? 13 : 18
            colour: Theme.text
            font.bold: !root.model.isWelcome
            Accessible.role: Accessible.Heading
        }
        BodyText {
            objectName: "wizardSubtitle"
            width: parent.width
            text: root.model.subtitle
            colour: Theme.secondaryText
            visible: text !== ""
        }
    }
    WizardSourcesBox {
        width: parent.width
        model: root.model
        visible: root.model.asksForSources
    }
    WizardDestinationBox {
        width: parent.width
        model: root.model
        visible: root.model.asksForDestination
    }
    Repeater {
        model: root.model.cards

        WizardCard {
            id: card

            required property var modelData  // a WizardCard of the model

            width: parent?.width ?? 0
            icon: modelData.icon
            title: modelData.title
            text: modelData.text
            bullets: modelData.bullets

            PrimaryButton {
                objectName: "wizardAction"
                text: card.modelData.actionLabel
                symbol: "arrow.up.right.square"
                visible: text !== ""
                onClicked: (card.parent as WizardScreenView).model.openExifToolSite()
            }
        }
    }
    BodyText {
        objectName: "wizardNote"
        width: parent.width
        text: root.model.note
        colour: Theme.tertiaryText
        visible: text !== ""
    }
}
