import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// One line of text to type. It is read out by its placeholder, unless it is given another name.
TextField {
    id: field

    property bool isMarked: activeFocus
    property color quietEdge: Theme.edge
    property color fill: Theme.inset

    implicitHeight: 32
    color: Theme.text
    font.family: Theme.fontFamily
    font.pixelSize: 11
    placeholderTextColor: Theme.dimmerTertiaryText
    selectionColor: Theme.yellow
    selectedTextColor: Theme.windowBackground
    selectByMouse: true
    leftPadding: 8
    rightPadding: 8
    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText

    background: Rectangle {
        objectName: "fieldBox"
        color: field.fill
        radius: 3
        border.width: 1
        border.color: field.isMarked ? Theme.yellow : field.quietEdge
    }
}
