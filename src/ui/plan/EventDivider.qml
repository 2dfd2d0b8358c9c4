import QtQuick
import QtQuick.Layouts
import Vellomar

// Stands above the first row of a new event.
RowLayout {
    id: divider
    objectName: "eventDivider"

    component Line: Rectangle {
        implicitHeight: 1
        color: Theme.yellow
        opacity: 0.35
        Layout.fillWidth: true
    }

    spacing: 10

    Line {
        Layout.leftMargin: 14
    }
    CapitalLabel {
        text: qsTr("NEW EVENT")
        size: 8
        tracking: 2
        colour: Qt.alpha(Theme.yellow, 0.6)
    }
    Line {
        Layout.rightMargin: 14
    }
}
