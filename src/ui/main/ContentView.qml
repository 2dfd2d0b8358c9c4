import QtQuick
import QtQuick.Layouts
import Vellomar

// The whole main window: header, what is amiss, three columns, and the line at the bottom.
ColumnLayout {
    id: view

    required property ContentViewModel content
    // What the tour speaks of.
    readonly property var tourAreas: ({
        sources: folders.sourcesArea,
        destination: folders.destinationArea,
        config: folders.configArea,
        actions: centre.actionsArea,
        dashboard: centre.dashboardArea,
        tools: tools
    })

    spacing: 0

    HeaderBar {
        content: view.content
        Layout.fillWidth: true
    }
    WizardReminder {
        firstRun: view.content.firstRun
        Layout.fillWidth: true
    }
    NoticeStrip {
        notices: view.content.notices
        Layout.fillWidth: true
    }
    RowLayout {
        spacing: 0
        Layout.fillWidth: true
        Layout.fillHeight: true

        FoldersColumn {
            id: folders
            content: view.content
            Layout.fillHeight: true
            Layout.preferredWidth: Math.max(220, Math.min(320, view.width * 0.22))
        }
        CentreColumn {
            id: centre
            content: view.content
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
        ToolsColumn {
            id: tools
            content: view.content
            Layout.fillHeight: true
            Layout.preferredWidth: Math.max(280, Math.min(420, view.width * 0.27))
        }
    }
    BottomBar {
        content: view.content
        Layout.fillWidth: true
    }
}
