import QtQuick
import Vellomar

// The plan's rows. The arrow keys move through them, Return inspects one, as does a click.
ScrollList {
    id: list

    property PlanColumns columns: null

    signal inspected(row: int)

    activeFocusOnTab: count > 0
    keyNavigationEnabled: true
    cacheBuffer: 0
    Accessible.name: qsTr("FILE PLAN PREVIEW")
    Keys.onReturnPressed: inspectCurrent()
    Keys.onEnterPressed: inspectCurrent()
    Keys.onPressed: event => event.accepted = moveBy(event.key)

    function inspectCurrent() {
        if (currentIndex >= 0)
            inspected(currentIndex);
    }

    // Whether the key is one that moves further than to the next row.
    function moveBy(key: int): bool {
        const row = rowAfter(key, currentIndex, Math.max(1, Math.floor(height / 60)));
        if (row >= 0)
            currentIndex = row;
        return row >= 0;
    }
}
