import QtQuick
import QtQuick.Layouts
import Vellomar

// One stage of a run, and the line that leads to it.
RowLayout {
    id: cell

    property int number: 1
    property string name
    property int stage: 0  // that is under way
    readonly property bool isDone: number < stage
    readonly property bool isCurrent: number === stage
    readonly property color colour: isDone ? Theme.success : isCurrent ? Theme.yellow : Theme.faintText
    readonly property color edge: isDone || isCurrent ? colour : Theme.edge

    spacing: 4

    Rectangle {
        visible: cell.number > 1
        implicitHeight: 1
        color: cell.edge
        Layout.fillWidth: true
    }
    Rectangle {
        implicitWidth: label.implicitWidth + 12
        implicitHeight: 20
        radius: 3
        color: cell.isCurrent ? Theme.yellowTint : cell.isDone ? Theme.copyBadge : "transparent"
        border.width: 1
        border.color: cell.edge

        CapitalLabel {
            id: label
            anchors.centerIn: parent
            text: cell.name
            size: 9
            tracking: 1
            colour: cell.colour
            Accessible.ignored: true
        }
    }
}
