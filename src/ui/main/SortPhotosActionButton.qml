import QtQuick
import Vellomar

// Asks for the real run.
ActionButton {
    text: qsTr("Sort Photos")
    symbol: "play.fill"
    symbolSize: 12
    labelSize: 12
    tracking: 0.5
    capitals: false
    implicitHeight: 38
    colour: Theme.windowBackground
    fill: Theme.yellow
    hoverFill: Theme.yellowHover
}
