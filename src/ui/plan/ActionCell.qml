import QtQuick
import Vellomar

// What happens to a row's file, and whether it is a duplicate.
Row {
    id: cell

    required property PlanListRow row

    spacing: 4

    ActionBadge {
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, cell.width - (dup.visible ? dup.width + cell.spacing : 0))
        text: cell.row.action
        colour: cell.row.badgeText
        color: cell.row.badgeFill
        edge: cell.row.badgeEdge
    }
    DupChip {
        id: dup
        anchors.verticalCenter: parent.verticalCenter
        visible: cell.row.isDup
    }
}
