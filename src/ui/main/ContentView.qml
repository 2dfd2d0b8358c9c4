import QtQuick
import QtQuick.Layouts
import Vellomar

// The whole main window: header, what is amiss, three columns, and the line at the bottom.
ColumnLayout {
    id: view

    required property ContentViewModel content

    spacing: 0

    HeaderBar {
        content: view.content
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
            content: view.content
            Layout.fillHeight: true
            Layout.preferredWidth: Math.max(220, Math.min(320, view.width * 0.22))
        }
        CentreColumn {
            content: view.content
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
        ToolsColumn {
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
