import QtQuick
import QtQuick.Layouts
import Vellomar

// Explains one row of the plan. Left and Right change the tab.
Sheet {
    id: root

    required property Inspector model

    title: qsTr("FILE INSPECTOR")
    titleSize: 13
    subtitle: model.fileName
    subtitleColour: Theme.secondaryText
    subtitleElide: Text.ElideMiddle
    minimumWidth: 640
    minimumHeight: 560
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: content
    initialFocus: closeButton
    visible: model.isOpen
    onConfirmed: model.dismiss()
    onCancelled: model.dismiss()

    headerLead: ThumbnailView {
        size: 40
        source: root.model.thumbnail
    }

    Shortcut {
        sequence: "Left"
        enabled: root.opened
        onActivated: root.model.tab -= 1
    }
    Shortcut {
        sequence: "Right"
        enabled: root.opened
        onActivated: root.model.tab += 1
    }

    Rectangle {
        implicitHeight: tabs.implicitHeight + 1
        color: Theme.sidePanel
        Layout.fillWidth: true

        RowLayout {
            id: tabs
            width: parent.width
            spacing: 0

            InspectorTab {
                text: qsTr("WHY THIS DATE")
                symbol: "calendar.badge.clock"
                model: root.model
                place: Inspector.ExifTab.whyDate
                Layout.fillWidth: true
                Layout.preferredWidth: 1
            }
            InspectorTab {
                text: qsTr("CAMERA")
                symbol: "camera"
                model: root.model
                place: Inspector.ExifTab.camera
                Layout.fillWidth: true
                Layout.preferredWidth: 1
            }
            InspectorTab {
                text: qsTr("LOCATION")
                symbol: "location"
                model: root.model
                place: Inspector.ExifTab.location
                Layout.fillWidth: true
                Layout.preferredWidth: 1
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.hairline
        }
    }
    ScrollArea {
        id: content
        padding: 24
        Layout.fillWidth: true
        Layout.fillHeight: true

        Item {
            id: pages
            width: parent.width
            implicitHeight: visibleChildren.length > 0 ? visibleChildren[0].implicitHeight : 0

            WhyDateTab {
                width: parent.width
                model: root.model
                visible: root.model.tab === Inspector.ExifTab.whyDate
            }
            CameraTab {
                width: parent.width
                model: root.model
                visible: root.model.tab === Inspector.ExifTab.camera
            }
            LocationTab {
                width: parent.width
                model: root.model
                visible: root.model.tab === Inspector.ExifTab.location
            }
        }
        Connections {
            target: root.model

            function onTabChanged() {
                content.contentY = 0;
                turn.restart();
            }
        }
        NumberAnimation {
            id: turn
            target: pages
            property: "opacity"
            from: 0
            to: 1
            duration: 150
        }
    }
    PathStrip {
        model: root.model
        Layout.fillWidth: true
    }

    footer: [
        ActionButton {
            text: qsTr("REVEAL IN FINDER")
            fill: Theme.popover
            edge: Theme.edge
            colour: Theme.secondaryText
            onClicked: root.model.revealSource()
        },
        BodyText {
            objectName: "fileSize"
            text: root.model.fileSize
            size: 10
            colour: Theme.secondaryText
            Layout.fillWidth: true
        },
        PrimaryButton {
            id: closeButton
            text: qsTr("CLOSE")
            onClicked: root.model.dismiss()
        }
    ]
}
