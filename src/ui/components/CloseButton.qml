import QtQuick
import Vellomar

// Top right of every sheet.
ActionButton {
    implicitWidth: 28
    implicitHeight: 28
    leftPadding: 0
    rightPadding: 0
    radius: 4
    text: "✕"
    labelSize: 15
    tracking: 0
    colour: hovered ? Theme.text : Theme.tertiaryText
    Accessible.description: qsTr("Close")
}
