import QtQuick
import Vellomar

// Whether a run is under way, and what the last one came to.
Rectangle {
    id: root

    property alias isRunning: words.isRunning
    property alias statusText: words.statusText
    readonly property color colour: isRunning ? Theme.success : Theme.tertiaryText

    implicitWidth: Math.min(220, dot.width + 6 + label.implicitWidth + 24)
    implicitHeight: 24
    radius: height / 2
    color: Theme.sidePanel
    border.width: 1
    border.color: isRunning ? Qt.alpha(Theme.success, 0.5) : Theme.edge
    Accessible.role: Accessible.StaticText
    Accessible.name: words.text

    StatusPillWords {
        id: words
    }

    Rectangle {
        id: dot
        objectName: "dot"
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 7
        height: 7
        radius: 3.5
        color: root.colour

        SequentialAnimation on opacity {
            running: root.isRunning && root.visible && root.Window.visibility > Window.Hidden
                && root.Window.visibility !== Window.Minimized
            loops: Animation.Infinite
            onStopped: dot.opacity = 1

            NumberAnimation {
                from: 1
                to: 0.3
                duration: 700
                easing.type: Easing.InOutQuad
            }

            NumberAnimation {
                from: 0.3
                to: 1
                duration: 700
                easing.type: Easing.InOutQuad
            }
        }
    }

    CapitalLabel {
        id: label
        objectName: "words"
        anchors.left: dot.right
        anchors.leftMargin: 6
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: words.text
        size: 9
        tracking: 1
        colour: root.colour
        font.bold: true
        Accessible.ignored: true
    }
}
