import QtQuick
import QtQuick.Templates as T
import Vellomar

// What all buttons have in common: a box with a symbol and a label, in capitals or as it is written, in the colours
// that each gives itself.
T.AbstractButton {
    id: root

    property string symbol
    property color colour: Theme.text
    property color fill: "transparent"
    property color hoverFill: Qt.alpha(Theme.text, 0.05)
    property color edge: "transparent"
    property int symbolSize: 10
    property int labelSize: 10
    property real tracking: 1
    property bool capitals: true
    property int radius: 3

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 32
    leftPadding: 16
    rightPadding: 16
    hoverEnabled: true
    opacity: enabled ? 1 : 0.5
    Accessible.role: Accessible.Button
    Accessible.name: text
    // A screen reader is not told otherwise that a button cannot be pressed.
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Accessible.onPressAction: press()
    Accessible.onToggleAction: press()
    Keys.onReturnPressed: event => activate(event)
    Keys.onEnterPressed: event => activate(event)

    function press() {
        if (enabled)
            clicked();
    }

    function activate(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }

    background: Rectangle {
        objectName: "box"
        radius: root.radius
        color: root.enabled && (root.hovered || root.down) ? root.hoverFill : root.fill
        opacity: root.down ? 0.8 : 1
        border.width: 1
        border.color: root.edge

        FocusRing {
            objectName: "focusRing"
            shown: root.visualFocus
            radius: root.radius + gap
        }
    }

    contentItem: ButtonFace {
        symbol: root.symbol
        text: root.text
        colour: root.colour
        symbolSize: root.symbolSize
        labelSize: root.labelSize
        tracking: root.tracking
        capitals: root.capitals
    }
}
