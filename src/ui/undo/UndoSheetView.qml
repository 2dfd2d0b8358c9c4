import QtQuick
import QtQuick.Layouts
import Vellomar

// The past runs, one of which can be undone.
Sheet {
    id: root

    required property UndoSheetModel model
    property bool isUndoing: false
    readonly property bool canUndo: model.hasSelection && !isUndoing

    signal importRequested
    signal undoRequested(row: int)
    signal dismissed

    title: qsTr("UNDO A RUN")
    subtitle: qsTr("Select a past run to reverse, or import a JSON undo file.")
    minimumWidth: 640
    minimumHeight: 520
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    canConfirm: canUndo
    initialFocus: model.count > 0 ? list as Item : cancelButton as Item
    onConfirmed: undoRequested(model.selectedRow)
    onCancelled: dismissed()

    headerActions: ActionButton {
        symbol: "arrow.down.doc"
        text: qsTr("IMPORT JSON")
        implicitHeight: 28
        leftPadding: 12
        rightPadding: 12
        labelSize: 9
        colour: Theme.yellow
        fill: Theme.yellowTint
        hoverFill: Theme.edge
        onClicked: root.importRequested()
    }

    ImportErrorBar {
        message: root.model.importError
        visible: message !== ""
        Layout.fillWidth: true
        onDismissed: root.model.dismissImportError()
    }

    Item {
        Layout.fillWidth: true
        Layout.fillHeight: true

        NoUndoFiles {
            anchors.fill: parent
            anchors.margins: 24
            isHovered: drop.containsDrag
            visible: root.model.count === 0
        }

        UndoRunList {
            id: list
            anchors.fill: parent
            model: root.model
            visible: root.model.count > 0
        }

        DropOverlay {
            anchors.fill: parent
            visible: drop.containsDrag && root.model.count > 0
        }
    }

    cover: DropArea {
        id: drop
        objectName: "dropArea"
        anchors.fill: parent
        onEntered: drag => drag.accepted = drag.hasUrls
        onDropped: drop => {
            root.model.importUrls(drop.urls);
            drop.accept(Qt.CopyAction);
        }
    }

    footer: [
        FooterNote {
            first: root.model.hasSelection ? qsTr("%1 operations will be reversed").arg(root.model.selectedOperations)
                : qsTr("Select a run above to undo it — or drag a JSON file anywhere.")
            second: root.model.hasSelection ? qsTr("Files modified since sorting will be skipped safely.") : ""
        },
        SecondaryButton {
            id: cancelButton
            text: qsTr("CANCEL")
            onClicked: root.cancelled()
        },
        PrimaryButton {
            text: qsTr("UNDO THIS RUN")
            symbol: "arrow.uturn.backward"
            visible: root.model.hasSelection
            enabled: root.canUndo
            onClicked: root.confirmed()
        }
    ]
}
