import QtQuick
import Vellomar

// Text that wraps in whatever width it is given.
Text {
    property int size: 11
    property color colour: Theme.bodyText

    color: colour
    font.family: Theme.fontFamily
    font.pixelSize: size
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
