import QtQuick
import Vellomar

// One line of text in a row of the plan.
Text {
    property int size: 11

    elide: Text.ElideMiddle
    font.family: Theme.fontFamily
    font.pixelSize: size
    maximumLineCount: 1
    textFormat: Text.PlainText
    Accessible.ignored: true
}
