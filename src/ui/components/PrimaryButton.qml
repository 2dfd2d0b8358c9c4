import QtQuick
import Vellomar

// What a screen is there for.
ActionButton {
    colour: Theme.windowBackground
    fill: Theme.yellow
    hoverFill: Theme.yellowHover
}
