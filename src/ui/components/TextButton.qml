import QtQuick
import Vellomar

// A word that can be clicked.
ActionButton {
    capitals: false
    implicitHeight: 24
    leftPadding: 4
    rightPadding: 4
    labelSize: 10
    tracking: 0.5
    colour: hovered ? Theme.text : Theme.tertiaryText
}
