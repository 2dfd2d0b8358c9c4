import QtQuick
import Vellomar

// Marks a duplicate.
Rectangle {
    property alias text: label.text

    implicitWidth: label.implicitWidth + 8
    implicitHeight: label.implicitHeight + 2
    radius: 2
    color: Theme.duplicateBadge
    border.width: 1
    border.color: Theme.duplicateOrange

    Text {
        id: label
        objectName: "dupText"
        anchors.centerIn: parent
        text: qsTr("DUP")
        color: Theme.duplicateOrange
        font.family: Theme.fontFamily
        font.pixelSize: 8
        font.bold: true
        Accessible.ignored: true
    }
}
