import QtQuick
import QtQuick.Layouts
import Vellomar

// What stands side by side below a sheet's header, set off from what follows by a hairline.
Item {
    id: root

    default property alias content: row.data

    implicitHeight: row.implicitHeight + 32

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.margins: 16
        anchors.leftMargin: 24
        anchors.rightMargin: 24
        spacing: 8
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
