import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vellomar

// The plan in a window of its own, with a search and filters.
ApplicationWindow {
    id: window
    objectName: "planWindow"

    required property PlanWindow flow
    readonly property FilePlan plan: flow.plan

    title: qsTr("File Plan Preview")
    width: 1240
    height: 760
    minimumWidth: 900
    minimumHeight: 480
    color: Theme.windowBackground
    visible: flow.isOpen
    onClosing: event => {
        event.accepted = false;
        window.flow.close();
    }

    Connections {
        target: window.flow

        function onRaiseRequested() {
            window.raise();
            window.requestActivate();
        }
    }
    Shortcut {
        sequence: "Ctrl+F"
        onActivated: toolbar.search.forceActiveFocus(Qt.ShortcutFocusReason)
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.flow.close()
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        FilePlanToolbar {
            id: toolbar
            plan: window.plan
            Layout.fillWidth: true
        }
        FilterPanel {
            filters: window.plan.filters
            isShown: toolbar.showsFilters
            Layout.fillWidth: true
        }
        FilePlanHeader {
            Layout.fillWidth: true
        }
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            EmptyNote {
                anchors.centerIn: parent
                width: parent.width - 40
                symbol: "doc.text.magnifyingglass"
                symbolSize: 36
                text: qsTr("Run a dry run or start a sort to see the file plan.")
                visible: window.plan.rows.total === 0
            }
            EmptyNote {
                anchors.centerIn: parent
                width: parent.width - 40
                symbol: "line.3.horizontal.decrease.circle"
                text: qsTr("No files match the active filters.")
                actionText: qsTr("Clear filters")
                visible: window.plan.rows.total > 0 && window.plan.rows.count === 0
                onActionChosen: window.plan.filters.clear()
            }
            PlanList {
                objectName: "planList"
                anchors.fill: parent
                // A window that is closed makes no rows and has no pictures decoded.
                model: window.flow.isOpen ? window.plan.rows : null
                visible: count > 0
                onInspected: row => window.plan.inspect(row)

                delegate: FilePlanWindowRow {
                    onInspected: {
                        ListView.view.currentIndex = index;
                        (ListView.view as PlanList).inspected(index);
                    }
                }
            }
        }
        FilePlanFooter {
            plan: window.plan
            Layout.fillWidth: true
        }
    }
    EXIFViewerSheet {
        model: window.plan.inspector
    }
}
