import QtQuick
import QtQuick.Layouts
import Vellomar

// Where a run goes from and to.
Rectangle {
    id: column
    objectName: "foldersColumn"

    required property ContentViewModel content
    readonly property Folders folders: content.folders
    readonly property alias sourcesArea: sources
    readonly property alias destinationArea: destination
    readonly property alias configArea: config

    color: Theme.sidePanel

    ScrollArea {
        id: scroll
        anchors {
            fill: parent
            rightMargin: 1
        }
        padding: 16

        ColumnLayout {
            width: parent.width
            spacing: 8

            ColumnLayout {
                id: sources
                spacing: 8
                Layout.fillWidth: true

                RowLayout {
                    spacing: 8
                    Layout.fillWidth: true
                    Layout.preferredHeight: 24

                    CapitalLabel {
                        text: qsTr("SOURCES (%1)").arg(column.folders.sources.count)
                        Layout.fillWidth: true
                    }
                    TextButton {
                        text: qsTr("Clear all")
                        visible: column.folders.sources.count > 0
                        onClicked: column.folders.clearSources()
                    }
                }
                FolderDrop {
                    text: qsTr("Drop to add")
                    onAddressesDropped: addresses => column.folders.dropOnSources(addresses)
                    Layout.fillWidth: true

                    ColumnLayout {
                        width: parent.width
                        spacing: 4

                        SourceRows {
                            folders: column.folders
                            Layout.fillWidth: true
                        }
                        AddFolderButton {
                            text: qsTr("Add source folder")
                            onClicked: column.folders.pickSources()
                            Layout.fillWidth: true
                        }
                    }
                }
            }
            ColumnLayout {
                id: destination
                spacing: 8
                Layout.topMargin: 8
                Layout.fillWidth: true

                CapitalLabel {
                    text: qsTr("DESTINATION")
                    verticalAlignment: Text.AlignVCenter
                    Layout.preferredHeight: 24
                    Layout.fillWidth: true
                }
                FolderDrop {
                    text: qsTr("Drop to set")
                    onAddressesDropped: addresses => column.folders.dropOnDestination(addresses)
                    Layout.fillWidth: true

                    ColumnLayout {
                        width: parent.width
                        spacing: 4

                        FolderRow {
                            visible: column.folders.hasDestination
                            pictograph: "📂"
                            name: column.folders.destinationName
                            shortPath: column.folders.destinationShortPath
                            path: column.folders.destinationPath
                            isMissing: column.folders.isDestinationMissing
                            onRemoved: column.folders.clearDestination()
                            Layout.fillWidth: true
                        }
                        AddFolderButton {
                            text: column.folders.hasDestination ? qsTr("Change destination") : qsTr("Set destination folder")
                            onClicked: column.folders.pickDestination()
                            Layout.fillWidth: true
                        }
                    }
                }
            }
            BodyText {
                text: column.content.lowSpaceText
                visible: text !== ""
                size: 10
                colour: Theme.yellow
                Layout.fillWidth: true
            }
            ConfigSummaryView {
                id: config
                sections: column.content.config
                Layout.topMargin: 8
                Layout.fillWidth: true
            }
            ExifToolNotice {
                visible: column.content.lacksExifTool
                Layout.topMargin: 8
                Layout.fillWidth: true
            }
            Breakdown {
                status: column.content.status
                visible: column.content.status.countedFiles > 0
                Layout.topMargin: 8
                Layout.fillWidth: true
            }
        }
    }

    // What scrolls away at the bottom fades.
    Rectangle {
        objectName: "fade"
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            rightMargin: 10
        }
        height: 28
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Qt.alpha(Theme.sidePanel, 0)
            }
            GradientStop {
                position: 1
                color: Theme.sidePanel
            }
        }
    }
    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.hairline
    }
}
