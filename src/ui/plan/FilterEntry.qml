import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vellomar

// One value that rows can be filtered by: selected or not, and how many rows have it.
T.AbstractButton {
    id: entry

    required property int index
    required property string value
    required property int rows
    required property bool isSelected

    implicitHeight: 26
    text: value
    checkable: true
    checked: isSelected
    onClicked: checked = Qt.binding(() => entry.isSelected)
    Accessible.name: value
    Accessible.description: qsTr("%1 files").arg(rows)
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        color: entry.hovered ? Theme.rowTint : "transparent"

        FocusRing {
            gap: -1
            radius: 2
            shown: entry.visualFocus
        }
    }

    contentItem: RowLayout {
        spacing: 8

        Rectangle {
            objectName: "filterBox"
            implicitWidth: 14
            implicitHeight: 14
            radius: 3
            color: entry.isSelected ? Theme.yellow : "transparent"
            border.width: 1
            border.color: entry.isSelected ? Theme.yellow : "#333330"
            Layout.leftMargin: 12

            Symbol {
                anchors.centerIn: parent
                name: "checkmark"
                size: 10
                colour: Theme.windowBackground
                visible: entry.isSelected
            }
        }
        PlanCell {
            objectName: "filterValue"
            text: entry.value
            color: entry.isSelected ? Theme.text : Theme.secondaryText
            Layout.fillWidth: true
        }
        CountChip {
            count: entry.rows
            Layout.rightMargin: 14
        }
    }
}
