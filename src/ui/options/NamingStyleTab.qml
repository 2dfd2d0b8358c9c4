import QtQuick
import Vellomar

// One of the naming styles.
Pill {
    radius: 3
    implicitHeight: 28
}
