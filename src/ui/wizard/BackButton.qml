import QtQuick
import Vellomar

// To the step before. At the first step there is none, and the keyboard's focus goes to `refuge`.
TextButton {
    required property Item refuge

    text: qsTr("← Back")
    onVisibleChanged: {
        if (!visible && activeFocus)
            refuge.forceActiveFocus(Qt.OtherFocusReason);
    }
}
