import QtQuick
import Vellomar

// One of several short texts, behind a dot.
Item {
    property alias text: words.text
    property alias colour: words.colour
    property alias size: words.size

    width: parent?.width ?? 0
    implicitHeight: words.implicitHeight

    BodyText {
        objectName: "bulletDot"
        text: "·"
        size: words.size
        colour: Theme.yellow
        font.bold: true
        Accessible.ignored: true
    }
    BodyText {
        id: words
        objectName: "bulletText"
        x: 14
        width: Math.max(0, parent.width - x)
    }
}
