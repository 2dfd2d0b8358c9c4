import QtQuick
import Vellomar

// How much is done, from 0 to 1.
Rectangle {
    id: track
    objectName: "progressTrack"

    property real value: 0
    property string text

    implicitHeight: 8
    radius: 4
    color: Theme.hairline
    Accessible.role: Accessible.ProgressBar
    Accessible.name: text

    Rectangle {
        width: track.value > 0 ? Math.max(parent.height, parent.width * Math.min(1, track.value)) : 0
        height: parent.height
        radius: 4
        color: Theme.yellow
    }
}
