import QtQuick
import Vellomar

// The folder that photos go to, and the ways to one and to none.
WizardCard {
    id: root

    required property WizardModel model
    readonly property Folders folders: model.folders

    icon: model.boxIcon
    title: model.boxTitle

    FolderDrop {
        width: parent.width
        text: qsTr("Drop to set")
        onAddressesDropped: addresses => root.folders.dropOnDestination(addresses)

        Column {
            width: parent.width
            spacing: 8

            WizardFolderRow {
                width: parent.width
                visible: root.folders.hasDestination
                isChecked: true
                isMissing: root.folders.isDestinationMissing
                name: root.folders.destinationName
                path: root.folders.destinationPath
                onRemoved: {
                    // It goes with the click.
                    pickButton.forceActiveFocus(Qt.OtherFocusReason);
                    root.folders.clearDestination();
                }
            }
            WizardRefusal {
                width: parent.width
                folders: root.folders
            }
            SecondaryButton {
                id: pickButton
                text: root.folders.hasDestination ? qsTr("CHANGE") : qsTr("ADD")
                accent: true
                onClicked: root.model.pickDestination()
            }
        }
    }
}
