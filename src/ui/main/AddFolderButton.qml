import QtQuick
import Vellomar

// Opens the choice of folders, at the width of the list above it.
ActionButton {
    implicitWidth: 80
    capitals: false
    implicitHeight: 32
    labelSize: 10
    colour: Theme.yellow
    hoverFill: Theme.yellowTint
    edge: Theme.edge
}
