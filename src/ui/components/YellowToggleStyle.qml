import QtQuick
import QtQuick.Templates as T
import Vellomar

// A switch: a capsule with a round knob, yellow and to the right while on. A tap anywhere on it toggles.
T.Switch {
    id: root

    implicitWidth: 30
    implicitHeight: 17
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.onPressAction: {
        if (enabled)
            tap();
    }
    Accessible.onToggleAction: tap()
    Keys.onReturnPressed: event => tapOnce(event)
    Keys.onEnterPressed: event => tapOnce(event)

    function tap() {
        toggle();
        toggled();
    }

    function tapOnce(event: KeyEvent) {
        if (!event.isAutoRepeat)
            tap();
    }

    indicator: Rectangle {
        objectName: "capsule"
        implicitWidth: 30
        implicitHeight: 17
        radius: height / 2
        color: root.checked ? Theme.yellow : Theme.edge
        opacity: root.enabled ? 1 : 0.5

        Behavior on color {
            ColorAnimation {
                duration: 120
            }
        }

        Rectangle {
            objectName: "knob"
            x: 2 + root.visualPosition * (parent.width - width - 4)
            y: 2
            width: 13
            height: 13
            radius: 6.5
            color: root.checked ? Theme.windowBackground : Theme.secondaryText

            Behavior on x {
                enabled: !root.down
                NumberAnimation {
                    duration: 120
                    easing.type: Easing.InOutQuad
                }
            }
        }

        FocusRing {
            shown: root.visualFocus
            radius: height / 2
        }
    }
}
