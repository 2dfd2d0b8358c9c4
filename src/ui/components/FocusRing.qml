import QtQuick
import Vellomar

// Drawn around a control while the keyboard's focus on it is to be seen. Stands in the control, as `target` or parent.
Rectangle {
    property Item target: parent
    property bool shown: false
    property int gap: 3

    anchors.fill: target
    anchors.margins: -gap
    color: "transparent"
    radius: 6
    border.width: 2
    border.color: Theme.yellow
    visible: shown
    Accessible.ignored: true
}
