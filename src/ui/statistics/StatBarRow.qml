import QtQuick
import QtQuick.Layouts
import Vellomar

// How many files have something in common, beside a bar.
Item {
    id: root

    required property string label
    required property bool isNone
    required property int count
    required property int percentage
    required property double share
    required property color barColour

    height: 24
    Accessible.role: Accessible.ListItem
    Accessible.name: label
    Accessible.description: isNone ? "" : `${countText.text}, ${percentageText.text}`

    component Cell: Text {
        required property int cellWidth

        font.family: Theme.fontFamily
        font.pixelSize: 11
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignRight
        Accessible.ignored: true
        Layout.minimumWidth: cellWidth
        Layout.maximumWidth: cellWidth
    }

    RowLayout {
        anchors.fill: parent
        spacing: 8

        Cell {
            objectName: "statLabel"
            cellWidth: 160
            text: root.label
            color: Theme.brighterBodyText
            elide: Text.ElideMiddle
            maximumLineCount: 1
            horizontalAlignment: Text.AlignLeft
        }
        Rectangle {
            objectName: "statTrack"
            implicitHeight: 14
            radius: 2
            color: Theme.popover
            visible: !root.isNone
            Layout.fillWidth: true
            Layout.preferredWidth: 1

            Rectangle {
                objectName: "statBar"
                width: root.share * parent.width
                height: parent.height
                radius: 2
                color: root.barColour
            }
        }
        Cell {
            id: countText
            objectName: "statCount"
            cellWidth: 50
            text: root.count
            color: Theme.secondaryText
            visible: !root.isNone
        }
        Cell {
            id: percentageText
            objectName: "statPercentage"
            cellWidth: 30
            text: root.percentage + "%"
            color: Theme.dimmerTertiaryText
            visible: !root.isNone
        }
        Item {
            visible: root.isNone
            Layout.fillWidth: true
        }
    }
}
