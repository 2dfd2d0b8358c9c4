import QtQuick
import Vellomar

// Asks for a run that touches nothing.
ActionButton {
    text: qsTr("Dry Run — Preview")
    symbol: "eye.fill"
    symbolSize: 12
    labelSize: 12
    tracking: 0.5
    capitals: false
    implicitHeight: 38
    colour: Theme.yellow
    fill: Theme.yellowTint
    hoverFill: Theme.rowTint
    edge: Theme.yellow
}
