import QtQuick
import Vellomar

// Another way than the primary one; with `accent` one that is worth a thought.
ActionButton {
    property bool accent: false

    colour: accent ? Theme.yellow : Theme.tertiaryText
    hoverFill: accent ? Theme.yellowTint : Qt.alpha(Theme.text, 0.05)
    edge: accent ? Theme.yellow : Theme.edge
}
