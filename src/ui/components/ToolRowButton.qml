import QtQuick
import Vellomar

// One of the tools: a rounded box with a small symbol and its name.
ActionButton {
    property color accentColour: Theme.bodyText

    implicitHeight: 28
    leftPadding: 10
    rightPadding: 10
    radius: 4
    labelSize: 9
    colour: accentColour
    fill: Theme.sidePanel
    hoverFill: Theme.brightPanel
    edge: Theme.edge
}
