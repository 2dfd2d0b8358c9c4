import QtQuick
import Vellomar

// What is too high scrolls, by the wheel, the scrollbar and the keys that nothing inside takes, and by itself to what
// the keyboard's focus comes upon. Never sideways.
Item {
    id: root

    property int padding: 0
    property real endRoom: 0  // below the content, that its end can be scrolled further up
    property alias flickable: flickable
    property alias contentY: flickable.contentY
    default property alias content: holder.data

    implicitHeight: holder.height + 2 * padding
    Keys.onPressed: event => event.accepted = scrollBy(event.key)

    // Whether the key is one that scrolls.
    function scrollBy(key: int): bool {
        const offset = geometry.offsetAfterKey(key);
        if (offset >= 0)
            flickable.contentY = offset;
        return offset >= 0;
    }

    function reveal(item: Item) {
        for (let above = item; above; above = above.parent) {
            if (above !== holder)
                continue;
            const top = item.mapToItem(flickable.contentItem, 0, 0).y;
            flickable.contentY = geometry.offsetToShow(top - 8, item.height + 16);
        }
    }

    // Scrolls `item`, which is somewhere inside, to `y` of the area, or as near as it can.
    function bring(item: Item, y: real) {
        flickable.contentY = geometry.offsetWithin(item.mapToItem(flickable.contentItem, 0, 0).y - y);
    }

    ScrollThumbGeometry {
        id: geometry
        offset: flickable.contentY
        contentHeight: flickable.contentHeight
        containerHeight: flickable.height
    }

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            root.reveal(root.Window.activeFocusItem);
        }
    }

    Flickable {
        id: flickable
        objectName: "flickable"
        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentWidth: width
        contentHeight: holder.height + 2 * root.padding + root.endRoom

        Item {
            id: holder
            x: root.padding
            y: root.padding
            width: flickable.width - 2 * root.padding
            height: childrenRect.height
        }
    }

    ScrollTrack {
        objectName: "scrollTrack"
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        anchors.rightMargin: 4
        flickable: flickable
    }
}
