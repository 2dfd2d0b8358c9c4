import QtQuick
import Vellomar

// The band at a sheet's upper or lower end, whose corners follow the sheet's.
Rectangle {
    id: root

    property bool atTop: true
    property int contentHeight: 0

    implicitHeight: contentHeight + 32
    color: Theme.sidePanel

    Rectangle {
        y: root.atTop ? parent.height - height : 0
        width: parent.width
        height: parent.radius
        color: parent.color
    }

    Rectangle {
        objectName: "line"
        y: root.atTop ? parent.height - 1 : 0
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
