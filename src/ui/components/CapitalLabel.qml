import QtQuick
import Vellomar

// A short label in capitals, spread a little.
Text {
    property int size: 10
    property real tracking: 1.5
    property color colour: Theme.secondaryText

    color: colour
    elide: Text.ElideRight
    font.family: Theme.fontFamily
    font.pixelSize: size
    font.letterSpacing: tracking
    font.capitalization: Font.AllUppercase
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
