import QtQuick
import Vellomar

// One group of duplicates: the file to keep, and how many copies there are.
Rectangle {
    id: row

    required property int index
    required property string fileName
    required property int copies
    property bool isSelected: false
    property bool hasFocus: false

    signal chosen

    height: 46
    color: isSelected || hover.hovered ? Theme.rowTint : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: fileName
    Accessible.description: copiesText.text
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    HoverHandler {
        id: hover
    }
    TapHandler {
        onTapped: row.chosen()
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 16
        width: parent.width - 2 * x
        spacing: 3

        BodyText {
            objectName: "groupName"
            width: parent.width
            text: row.fileName
            colour: row.isSelected ? Theme.text : Theme.secondaryText
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
        BodyText {
            id: copiesText
            objectName: "groupCopies"
            text: qsTr("%1 copies").arg(row.copies)
            size: 9
            colour: Theme.yellow
            Accessible.ignored: true
        }
    }
    Rectangle {
        objectName: "groupLine"
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: "#151515"
    }
    FocusRing {
        gap: -1
        radius: 0
        border.width: 1
        shown: row.hasFocus
    }
}
