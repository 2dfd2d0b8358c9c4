import QtQuick
import Vellomar

// What a run does to a file, as it stands in the plan.
Rectangle {
    id: badge

    property alias text: label.text
    property alias colour: label.color
    property color edge

    implicitWidth: label.implicitWidth + 10
    implicitHeight: label.implicitHeight + 4
    radius: 2
    border.width: 1
    border.color: edge

    Text {
        id: label
        objectName: "actionText"
        anchors.verticalCenter: parent.verticalCenter
        x: 5
        width: parent.width - 10
        elide: Text.ElideRight
        font.family: Theme.fontFamily
        font.pixelSize: 9
        font.bold: true
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
