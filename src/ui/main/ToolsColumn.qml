import QtQuick
import QtQuick.Layouts
import Vellomar

// The tools, and what the last run did.
Rectangle {
    id: column
    objectName: "toolsColumn"

    required property ContentViewModel content

    color: Theme.sidePanel

    ColumnLayout {
        anchors {
            fill: parent
            leftMargin: 1
        }
        spacing: 0

        ScrollArea {
            padding: 16
            Layout.fillWidth: true
            Layout.fillHeight: true

            ColumnLayout {
                width: parent.width
                spacing: 16

                ColumnLayout {
                    spacing: 8
                    Layout.fillWidth: true

                    ToolRow {
                        content: column.content
                        Layout.fillWidth: true
                    }
                    SetupTools {
                        content: column.content
                        Layout.fillWidth: true
                    }
                }
                OptionsPanel {
                    options: column.content.options
                    Layout.fillWidth: true

                    tools: SetupTools {
                        width: parent.width
                        content: column.content
                    }
                }
            }
        }
        LastRunPanel {
            content: column.content
            Layout.fillWidth: true
            Layout.preferredHeight: 180
        }
    }
    Rectangle {
        width: 1
        height: parent.height
        color: Theme.hairline
    }
}
