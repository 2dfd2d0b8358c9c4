import QtQuick
import Vellomar

// The groups that were found. The arrow keys move the selection, as does a click.
ScrollList {
    id: list

    required property DuplicateViewerModel viewer
    readonly property int selectedIndex: viewer.selectedIndex

    model: viewer.groups
    currentIndex: selectedIndex
    onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
    onHeightChanged: positionViewAtIndex(currentIndex, ListView.Contain)
    activeFocusOnTab: true
    Accessible.name: qsTr("GROUPS")
    Keys.onUpPressed: viewer.select(selectedIndex - 1)
    Keys.onDownPressed: viewer.select(selectedIndex + 1)
    Keys.onPressed: event => event.accepted = moveBy(event.key)

    // Whether the key is one that moves further than to the next row.
    function moveBy(key: int): bool {
        const row = rowAfter(key, selectedIndex, Math.max(1, Math.floor(height / 46)));
        if (row >= 0)
            viewer.select(row);
        return row >= 0;
    }

    delegate: DuplicateGroupRow {
        readonly property DuplicateGroupList list: ListView.view as DuplicateGroupList

        width: list?.width ?? 0
        isSelected: index === list?.selectedIndex
        hasFocus: isSelected && (list?.activeFocus ?? false)
        onChosen: {
            list.forceActiveFocus(Qt.MouseFocusReason);
            list.viewer.select(index);
        }
    }

    FocusRing {
        parent: list
        gap: -1
        radius: 0
        border.width: 1
        shown: list.activeFocus && list.selectedIndex >= list.count
    }
}
