import QtQuick
import Vellomar

// A list that is as long as it wants: it scrolls, with a scrollbar beside it, and by itself to the row in which the
// keyboard's focus is. Only the rows in sight exist.
ListView {
    id: list

    // Where the focus goes when the row in which it is is removed.
    property Item refuge: list

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    reuseItems: true
    keyNavigationEnabled: false
    highlightMoveDuration: 0
    Accessible.role: Accessible.List

    // The row that holds an item; null for an item that lies elsewhere.
    function rowOf(item: Item): Item {
        let row = item;
        while (row && row.parent !== contentItem)
            row = row.parent;
        return row;
    }

    function reveal(item: Item) {
        const row = rowOf(item);
        if (row)
            positionViewAtIndex(indexAt(row.x, row.y), ListView.Contain);
    }

    // Whether the key is one that scrolls.
    function scrollBy(key: int): bool {
        const offset = track.offsetAfterKey(key);
        if (offset < 0)
            return false;
        // Where the ends are depends on the heights of rows that come into view only now.
        for (let round = 0; round < 2; ++round) {
            if (key === Qt.Key_Home)
                positionViewAtBeginning();
            else if (key === Qt.Key_End)
                positionViewAtEnd();
            else if (round === 0)
                contentY = originY + offset;
            forceLayout();
        }
        returnToBounds();
        return true;
    }

    // The row that a key leads to which moves further than to the next one; -1 for any other key.
    function rowAfter(key: int, row: int, page: int): int {
        const step = ({
            [Qt.Key_PageUp]: -page,
            [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -count,
            [Qt.Key_End]: count
        })[key];
        return step === undefined || count === 0 ? -1 : Math.max(0, Math.min(count - 1, row + step));
    }

    Connections {
        target: list.Window.window

        function onActiveFocusItemChanged() {
            list.reveal(list.Window.activeFocusItem);
        }
    }

    Connections {
        target: list.model

        function onRowsAboutToBeRemoved(parent: var, first: int, last: int) {
            const row = list.rowOf(list.Window.activeFocusItem);
            const index = row ? list.indexAt(row.x, row.y) : -1;
            if (index >= first && index <= last)
                list.refuge.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    ScrollTrack {
        id: track
        parent: list
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        anchors.rightMargin: 4
        flickable: list
    }
}
