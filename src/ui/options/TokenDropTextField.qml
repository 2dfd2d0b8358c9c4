import QtQuick
import Vellomar

// The field of the custom format. What is dropped on it is told, and belongs at the end wherever the cursor stands.
InputField {
    id: field

    signal textDropped(text: string)

    placeholderText: qsTr("e.g. {YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{original}.{ext}")
    isMarked: drop.containsDrag || activeFocus
    Accessible.name: qsTr("Custom format")

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
