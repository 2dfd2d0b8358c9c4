import QtQuick
import Vellomar

// A dot that swells and shrinks for as long as it is to be seen.
Rectangle {
    id: root

    property color colour: Theme.alertRed
    readonly property bool isPulsing: swell.running

    implicitWidth: 7
    implicitHeight: 7
    radius: width / 2
    color: colour
    Accessible.ignored: true

    SequentialAnimation on scale {
        id: swell
        running: root.visible && (root.Window.visibility > Window.Hidden && root.Window.visibility !== Window.Minimized)
        loops: Animation.Infinite
        onStopped: root.scale = 1

        NumberAnimation {
            from: 1
            to: 1.4
            duration: 700
            easing.type: Easing.InOutQuad
        }

        NumberAnimation {
            from: 1.4
            to: 1
            duration: 700
            easing.type: Easing.InOutQuad
        }
    }
}
