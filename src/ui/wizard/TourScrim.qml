import QtQuick
import Vellomar

// Black over the whole window, thinner over one spot, which has an edge.
Item {
    id: root

    required property rect spot

    signal tapped

    component Shade: Rectangle {
        objectName: "tourShade"
        color: Qt.alpha("black", 0.62)
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.tapped()
    }
    Shade {
        width: parent.width
        height: root.spot.top
    }
    Shade {
        y: root.spot.bottom
        width: parent.width
        height: Math.max(0, parent.height - y)
    }
    Shade {
        y: root.spot.top
        width: root.spot.left
        height: root.spot.height
    }
    Shade {
        x: root.spot.right
        y: root.spot.top
        width: Math.max(0, parent.width - x)
        height: root.spot.height
    }
    Rectangle {
        objectName: "tourSpot"
        x: root.spot.x
        y: root.spot.y
        width: root.spot.width
        height: root.spot.height
        color: Qt.alpha("black", 0.1)
        border.width: 1
        border.color: Theme.yellow
        visible: width > 0 && height > 0
    }
}
