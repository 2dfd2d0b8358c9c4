import QtQuick
import QtQuick.Layouts
import Vellomar

// One file of the plan in the plan's own window.
PlanListRow {
    id: row

    rowHeight: 80
    evenFill: Theme.windowBackground
    oddFill: "#0e0e0e"

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Item {
            implicitWidth: 80
            Layout.minimumWidth: 80
            implicitHeight: 72

            ThumbnailView {
                anchors.centerIn: parent
                size: 72
                source: row.thumbnail
            }
        }
        ColumnLayout {
            spacing: 4
            Layout.minimumWidth: 180
            Layout.maximumWidth: 180

            PlanCell {
                objectName: "fileNameCell"
                text: row.fileName
                color: Theme.text
                leftPadding: 8
                Layout.fillWidth: true
            }
            PlanCell {
                text: row.sourceFolder
                color: Theme.secondaryText
                size: 9
                leftPadding: 8
                Layout.fillWidth: true
            }
        }
        PlanCell {
            text: row.destination
            color: Theme.bodyText
            leftPadding: 8
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        PlanCell {
            text: row.camera
            color: Theme.yellow
            elide: Text.ElideRight
            leftPadding: 8
            Layout.minimumWidth: 260
            Layout.maximumWidth: 260
        }
        ActionCell {
            row: row
            Layout.minimumWidth: 90
            Layout.maximumWidth: 90
        }
        PlanCell {
            text: row.date
            color: Theme.secondaryText
            leftPadding: 8
            size: 10
            Layout.minimumWidth: 145
            Layout.maximumWidth: 145
        }
    }
}
