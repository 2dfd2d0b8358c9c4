import QtQuick
import Vellomar

// A small picture of a file, or a placeholder while there is none.
Item {
    id: root

    property int size: 36
    property alias source: picture.source
    // A file without a picture gives an empty one.
    readonly property bool hasPicture: picture.status === Image.Ready && picture.implicitWidth > 0

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Rectangle {
        objectName: "placeholder"
        anchors.fill: parent
        radius: 3
        color: Theme.popover
        visible: !root.hasPicture

        Symbol {
            anchors.centerIn: parent
            name: "photo"
            colour: Theme.dimmerTertiaryText
            size: Math.round(root.size / 2.6)
        }
    }
    Image {
        id: picture
        objectName: "picture"
        anchors.fill: parent
        asynchronous: true
        cache: false
        fillMode: Image.PreserveAspectCrop
        sourceSize.width: 2 * root.size
        sourceSize.height: 2 * root.size
        visible: root.hasPicture
    }
}
