import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// Opens the plan's own window. Its hint is there even while it cannot be pressed, to say why.
Item {
    id: root

    required property PlanWindow window
    property bool isReady: true
    readonly property string hint: isReady ? qsTr("Open file plan in separate window")
        : qsTr("Run a Dry Run first to populate the file plan")

    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight
    ToolTip.visible: hover.hovered
    ToolTip.delay: 600
    ToolTip.text: hint

    HoverHandler {
        id: hover
    }
    ToolRowButton {
        id: button
        text: qsTr("POP OUT")
        symbol: "arrow.up.forward.app"
        implicitHeight: 24
        enabled: root.isReady
        Accessible.description: root.hint
        onClicked: root.window.open()
    }
}
