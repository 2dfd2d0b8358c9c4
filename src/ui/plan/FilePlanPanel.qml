import QtQuick
import QtQuick.Layouts
import Vellomar

// What a run will do with each file, or did, in the main window.
Rectangle {
    id: panel

    required property FilePlan plan
    required property PlanWindow planWindow
    required property RunFlow run
    readonly property PlanModel rows: plan.rows

    implicitHeight: column.implicitHeight
    radius: 4
    color: Theme.sidePanel
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("FILE PLAN PREVIEW")

    PlanColumns {
        id: columns
        width: panel.width - 2
    }

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: 1
        spacing: 0

        RowLayout {
            spacing: 10
            Layout.fillWidth: true
            Layout.leftMargin: 14
            Layout.rightMargin: 10
            Layout.preferredHeight: 40

            CapitalLabel {
                text: qsTr("FILE PLAN PREVIEW")
                tracking: columns.isNarrow ? 0.5 : 1.5
            }
            BodyText {
                objectName: "planCount"
                text: qsTr("%1 files").arg(panel.rows.total)
                size: 10
                colour: Theme.tertiaryText
                visible: !panel.rows.isCapped
                Layout.fillWidth: true
            }
            Symbol {
                name: "exclamationmark.triangle.fill"
                colour: Theme.yellow
                visible: panel.rows.isCapped
            }
            BodyText {
                objectName: "planCapped"
                text: qsTr("Showing 5,000 of %1 — full plan in CSV").arg(panel.rows.scanned)
                size: columns.isNarrow ? 9 : 10
                colour: Theme.yellow
                visible: panel.rows.isCapped
                Layout.fillWidth: true
            }
            PopOutButton {
                window: panel.planWindow
                isReady: panel.rows.total > 0
            }
        }
        PlanHeader {
            columns: columns
            Layout.fillWidth: true
        }
        Item {
            implicitHeight: 308
            Layout.fillWidth: true

            EmptyNote {
                anchors.centerIn: parent
                width: parent.width - 40
                symbol: "doc.text.magnifyingglass"
                title: qsTr("No preview yet")
                text: qsTr("Run Dry Run to see exactly where every photo will go — source path, destination path, and "
                    + "camera model for each file.")
                actionText: qsTr("◉ Run Dry Run to preview")
                offersAction: panel.run.canRun
                visible: panel.rows.total === 0 && !panel.rows.isRunning
                onActionChosen: panel.run.askDryRun()
            }
            EmptyNote {
                anchors.centerIn: parent
                width: parent.width - 40
                symbol: "arrow.triangle.2.circlepath"
                symbolColour: Theme.secondaryText
                title: qsTr("Building plan…")
                opacity: 0.5
                visible: panel.rows.total === 0 && panel.rows.isRunning
            }
            PlanList {
                id: list
                objectName: "planList"
                anchors.fill: parent
                columns: columns
                model: panel.rows
                visible: panel.rows.total > 0
                onInspected: row => panel.plan.inspect(row)

                delegate: FilePlanRow {
                    columns: (ListView.view as PlanList).columns
                    onInspected: {
                        ListView.view.currentIndex = index;
                        (ListView.view as PlanList).inspected(index);
                    }
                }
            }
        }
    }
}
