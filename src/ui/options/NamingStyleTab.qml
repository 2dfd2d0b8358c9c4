import QtQuick
import Vellomar

// One of the naming styles.
Pill {
    radius: 3
    implicitHeight: 28

    Behavior on fill {
        ColorAnimation {
            duration: 150
        }
    }
    Behavior on colour {
        ColorAnimation {
            duration: 150
        }
    }
}
