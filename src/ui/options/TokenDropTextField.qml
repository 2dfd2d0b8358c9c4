import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// The field of the custom format. What is dropped on it is told, and belongs at the end wherever the cursor stands.
TextField {
    id: field

    signal textDropped(text: string)

    implicitHeight: 32
    color: Theme.text
    font.family: Theme.fontFamily
    font.pixelSize: 11
    placeholderText: qsTr("e.g. {YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{original}.{ext}")
    placeholderTextColor: Theme.dimmerTertiaryText
    selectionColor: Theme.yellow
    selectedTextColor: Theme.windowBackground
    selectByMouse: true
    leftPadding: 8
    rightPadding: 8
    Accessible.role: Accessible.EditableText
    Accessible.name: qsTr("Custom format")

    background: Rectangle {
        objectName: "fieldBox"
        color: Theme.inset
        radius: 3
        border.width: 1
        border.color: drop.containsDrag || field.activeFocus ? Theme.yellow : Theme.edge
    }

    DropArea {
        id: drop
        objectName: "tokenDrop"
        anchors.fill: parent
        onEntered: drag => drag.accepted = drag.hasText
        onDropped: drop => {
            drop.accept(Qt.CopyAction);
            field.textDropped(drop.text);
        }
    }
}
