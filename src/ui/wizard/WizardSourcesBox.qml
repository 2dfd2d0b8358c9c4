import QtQuick
import Vellomar

// The folders that were chosen in the wizard, and the ways to more and to fewer.
WizardCard {
    id: root

    required property WizardModel model

    icon: model.boxIcon
    title: model.boxTitle

    FolderDrop {
        width: parent.width
        text: qsTr("Drop to add")
        onAddressesDropped: addresses => root.model.dropOnSources(addresses)

        Column {
            width: parent.width
            spacing: 8

            ScrollList {
                id: list
                objectName: "wizardSources"
                width: parent.width
                height: Math.min(160, contentHeight)
                visible: count > 0
                spacing: 4
                model: root.model.wizardSources
                refuge: addButton
                Accessible.name: root.title

                delegate: WizardFolderRow {
                    required property int index

                    width: (ListView.view?.width ?? 0) - (ListView.view?.contentHeight > 160 ? 12 : 0)
                    onRemoved: ((ListView.view as ScrollList).model as WizardSources).removeAt(index)
                }
            }
            WizardRefusal {
                width: parent.width
                folders: root.model.folders
            }
            Row {
                spacing: 8

                SecondaryButton {
                    id: addButton
                    text: qsTr("ADD")
                    accent: true
                    onClicked: root.model.pickSources()
                }
                SecondaryButton {
                    text: qsTr("CLEAR ALL")
                    visible: list.count > 0
                    onClicked: {
                        // It goes with the click.
                        addButton.forceActiveFocus(Qt.OtherFocusReason);
                        root.model.clearSources();
                    }
                }
            }
        }
    }
}
