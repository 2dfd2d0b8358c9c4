import QtQuick
import QtQuick.Layouts
import Vellomar

// The groups of files with the same bytes, and the files of one of them.
Sheet {
    id: root

    required property DuplicateViewerModel model
    readonly property bool hasGroups: model.groups.count > 0

    symbol: "doc.on.doc.fill"
    title: qsTr("DUPLICATE VIEWER")
    titleNote: qsTr("· %1 groups").arg(model.total)
    minimumWidth: 800
    minimumHeight: 600
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: fileList
    initialFocus: hasGroups ? groupList as Item : closeButton as Item
    onConfirmed: model.dismiss()
    onCancelled: model.dismiss()

    headerActions: [
        Item {
            Layout.fillWidth: true
        },
        SearchField {
            objectName: "duplicateSearch"
            implicitWidth: 160
            quietEdge: Theme.edge
            text: root.model.searchText
            onTextEdited: root.model.searchText = text
            // Who has typed what to look for goes on among what was found.
            Keys.onReturnPressed: goOn()
            Keys.onEnterPressed: goOn()

            function goOn() {
                if (root.hasGroups)
                    groupList.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    ]

    Item {
        Layout.fillWidth: true
        Layout.fillHeight: true

        EmptyNote {
            anchors.centerIn: parent
            width: parent.width - 40
            symbol: "doc.on.doc"
            symbolSize: 36
            text: qsTr("No duplicates found")
            visible: !root.hasGroups
        }
        RowLayout {
            anchors.fill: parent
            spacing: 0
            visible: root.hasGroups

            Rectangle {
                objectName: "groupsColumn"
                color: "#0f0f0f"
                Layout.minimumWidth: 220
                Layout.maximumWidth: 220
                Layout.fillHeight: true

                ColumnLayout {
                    anchors.fill: parent
                    spacing: 0

                    CapitalLabel {
                        text: qsTr("GROUPS")
                        Layout.fillWidth: true
                        Layout.margins: 16
                        Layout.bottomMargin: 10
                    }
                    DuplicateGroupList {
                        id: groupList
                        objectName: "groupList"
                        viewer: root.model
                        Layout.fillWidth: true
                        Layout.fillHeight: true
                    }
                }
            }
            DuplicateFileList {
                id: fileList
                objectName: "fileList"
                files: root.model.files
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.fillHeight: true
                Layout.leftMargin: 16
            }
        }
    }

    footer: [
        FooterNote {
            first: qsTr("Click REVEAL IN FINDER to inspect files before the real run.")
        },
        PrimaryButton {
            id: closeButton
            text: qsTr("CLOSE")
            onClicked: root.model.dismiss()
        }
    ]
}
