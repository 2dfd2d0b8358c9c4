import QtQuick
import Vellomar

// A box with a symbol and a title, and below them a text, a list, or what else it holds.
Rectangle {
    id: root

    required property string icon
    required property string title
    property string text
    property var bullets: []
    default property alias content: holder.data

    objectName: "wizardCard"
    height: column.height + 28
    color: Theme.inset
    radius: 6
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Column {
        id: column
        x: 16
        y: 14
        width: parent.width - 32
        spacing: 10

        Item {
            width: parent.width
            height: Math.max(16, heading.implicitHeight)

            Symbol {
                objectName: "wizardCardIcon"
                y: 1
                name: root.icon
                colour: Theme.yellow
                size: 14
            }
            BodyText {
                id: heading
                objectName: "wizardCardTitle"
                x: 26
                width: Math.max(0, parent.width - x)
                text: root.title
                size: 12
                colour: Theme.text
                font.bold: true
                Accessible.role: Accessible.Heading
            }
        }
        BodyText {
            objectName: "wizardCardText"
            width: parent.width
            text: root.text
            visible: text !== ""
        }
        Column {
            width: parent.width
            spacing: 5
            visible: root.bullets.length > 0

            Repeater {
                model: root.bullets

                BulletText {
                    required property string modelData

                    text: modelData
                }
            }
        }
        Column {
            id: holder
            width: parent.width
            spacing: 8
            visible: children.length > 0
        }
    }
}
