import QtQuick
import Vellomar

// The files of the selected group. What the disk tells of them is asked for while they are in sight. Tab comes to the
// button of one card, and the arrow keys go on to the others: they need not exist yet.
ScrollList {
    id: list

    required property DuplicateFilesModel files

    model: files
    activeFocusOnTab: count > 0
    keyNavigationEnabled: true
    spacing: 12
    Accessible.name: qsTr("DUPLICATE VIEWER")

    header: Item {
        height: 16
    }
    footer: Item {
        height: 16
    }

    Connections {
        target: list.files

        function onModelReset() {
            list.currentIndex = 0;
            list.positionViewAtBeginning();
        }
    }

    delegate: DuplicateFileCard {
        readonly property DuplicateFilesModel files: (ListView.view as DuplicateFileList)?.files ?? null

        width: (ListView.view?.width ?? 0) - 16
        Component.onCompleted: files?.look(index)
        ListView.onReused: files?.look(index)
        ListView.onPooled: files?.lookAway(index)
        onActiveFocusChanged: {
            if (activeFocus)
                ListView.view.currentIndex = index;
        }
        onRevealed: files?.reveal(index)
    }
}
