import QtQuick
import Vellomar

// One symbol in one colour; without a name nothing. It tells nothing to a screen reader: what it stands beside does.
Image {
    required property string name
    property color colour: Theme.text
    property int size: 11

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: name === "" ? "" : "image://symbols/" + name + "/" + colour.toString().slice(1)
    Accessible.ignored: true
}
