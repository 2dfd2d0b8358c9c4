import QtQuick
import Vellomar

// One number of the last run.
Rectangle {
    id: card

    property string label
    property string value

    implicitWidth: 80
    implicitHeight: 40
    radius: 3
    color: Theme.inset
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Column {
        anchors {
            left: parent.left
            right: parent.right
            verticalCenter: parent.verticalCenter
            leftMargin: 8
            rightMargin: 8
        }
        spacing: 1

        Text {
            width: parent.width
            text: card.value
            color: Theme.text
            elide: Text.ElideRight
            font.family: Theme.fontFamily
            font.pixelSize: 15
            font.bold: true
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        CapitalLabel {
            width: parent.width
            text: card.label
            size: 8
            tracking: 1
            colour: Theme.tertiaryText
            Accessible.ignored: true
        }
    }
}
