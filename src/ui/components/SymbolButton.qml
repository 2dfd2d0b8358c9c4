import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// A symbol that can be pressed. Its name is its hint.
ActionButton {
    id: button

    required property string name

    implicitWidth: 22
    implicitHeight: 22
    leftPadding: 0
    rightPadding: 0
    symbolSize: 12
    colour: hovered ? Theme.text : Theme.tertiaryText
    Accessible.name: name
    ToolTip.visible: hovered
    ToolTip.delay: 600
    ToolTip.text: name
}
