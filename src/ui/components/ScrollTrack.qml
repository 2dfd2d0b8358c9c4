import QtQuick
import Vellomar

// The scrollbar of `flickable`, beside which it lies and whose height it has. For the mouse alone: what it scrolls is
// scrolled by the keyboard as well.
Rectangle {
    id: root

    property Flickable flickable: null
    readonly property alias thumbTop: geometry.top
    readonly property alias thumbHeight: geometry.height
    readonly property alias isDragged: mouse.pressed

    implicitWidth: 4
    radius: 2
    color: Theme.scrollTrack
    visible: geometry.isVisible
    Accessible.ignored: true

    // See ScrollThumbGeometry.
    function offsetAfterKey(key: int): real {
        return geometry.offsetAfterKey(key);
    }

    ScrollThumbGeometry {
        id: geometry
        offset: root.flickable ? root.flickable.contentY - root.flickable.originY : 0
        contentHeight: root.flickable ? root.flickable.contentHeight : 0
        containerHeight: root.flickable ? root.flickable.height : 0
    }

    Rectangle {
        objectName: "thumb"
        y: geometry.top
        width: parent.width
        height: geometry.height
        radius: 2
        color: mouse.containsMouse || mouse.pressed ? Theme.yellowHover : Theme.yellow
    }

    // Wider than what is drawn, which is hard to hit.
    MouseArea {
        id: mouse

        property real grip: 0

        anchors.fill: parent
        anchors.leftMargin: -4
        anchors.rightMargin: -4
        hoverEnabled: true
        preventStealing: true

        function scrollTo(y: real) {
            root.flickable.contentY = root.flickable.originY + geometry.offsetOfThumbAt(y - grip);
        }

        onPressed: event => {
            const isOnThumb = event.y >= geometry.top && event.y < geometry.top + geometry.height;
            grip = isOnThumb ? event.y - geometry.top : geometry.height / 2;
            scrollTo(event.y);
        }
        onPositionChanged: event => {
            if (pressed)
                scrollTo(event.y);
        }
    }
}
