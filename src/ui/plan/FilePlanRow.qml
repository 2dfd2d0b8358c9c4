import QtQuick
import Vellomar

// One file of the plan in the main window.
PlanListRow {
    id: row

    required property PlanColumns columns

    ThumbnailView {
        x: 14
        y: (row.rowHeight - height) / 2
        size: 36
        source: row.thumbnail
    }
    PlanCell {
        objectName: "sourceCell"
        text: row.shortSource
        color: Theme.text
        x: row.columns.sourceX
        y: row.columns.upper(row.rowHeight) - height / 2
        width: row.columns.sourceWidth
    }
    PlanCell {
        objectName: "destinationCell"
        text: row.shortDestination
        color: row.columns.isNarrow ? Theme.secondaryText : Theme.text
        x: row.columns.destinationX
        y: row.columns.lower(row.rowHeight) - height / 2
        width: row.columns.destinationWidth
    }
    PlanCell {
        objectName: "cameraCell"
        text: row.camera
        color: Theme.yellow
        elide: Text.ElideRight
        x: row.columns.cameraX
        y: row.columns.upper(row.rowHeight) - height / 2
        width: row.columns.cameraWidth
    }
    ActionCell {
        row: row
        x: row.columns.actionX
        y: (row.rowHeight - height) / 2
        width: row.columns.actionWidth
    }
    PlanCell {
        objectName: "dateCell"
        text: row.date
        color: Theme.secondaryText
        size: row.columns.isNarrow ? 9 : 10
        elide: Text.ElideRight
        x: row.columns.dateX
        y: row.columns.lower(row.rowHeight) - height / 2
        width: row.columns.dateWidth
    }
}
