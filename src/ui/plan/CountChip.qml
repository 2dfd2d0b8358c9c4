import QtQuick
import Vellomar

// A small number in a box.
Rectangle {
    property alias count: label.text

    implicitWidth: label.implicitWidth + 10
    implicitHeight: label.implicitHeight + 4
    radius: 3
    color: Theme.popover

    Text {
        id: label
        objectName: "count"
        anchors.centerIn: parent
        color: Theme.dimmerTertiaryText
        font.family: Theme.fontFamily
        font.pixelSize: 9
        Accessible.ignored: true
    }
}
