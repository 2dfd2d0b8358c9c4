import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// Stands behind the wordmark while the hidden mode is on, and switches it off.
AbstractButton {
    id: paw

    text: qsTr("Floppy mode active")
    implicitWidth: 24
    implicitHeight: 24
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    ToolTip.visible: hovered
    ToolTip.text: text

    contentItem: Text {
        text: "🐾"
        opacity: 0.6
        font.pixelSize: 14
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: FocusRing {
        shown: paw.visualFocus
    }
}
