import QtQuick
import QtQuick.Layouts
import Vellomar

// A folder whose new files are sorted as they arrive.
Sheet {
    id: root

    required property WatchFolder model

    symbol: "eye.fill"
    symbolColour: model.isWatching ? Theme.yellow : Theme.tertiaryText
    title: qsTr("WATCH FOLDER")
    minimumWidth: 540
    minimumHeight: 460
    bodySpacing: 14
    canConfirm: model.canStart
    initialFocus: closeButton
    onConfirmed: model.start()
    onCancelled: model.dismiss()

    headerActions: Rectangle {
        objectName: "activeBadge"
        visible: root.model.isWatching
        implicitWidth: active.implicitWidth + 16
        implicitHeight: 20
        radius: 3
        color: Theme.copyBadge
        Layout.alignment: Qt.AlignVCenter

        CapitalLabel {
            id: active
            anchors.centerIn: parent
            text: qsTr("● ACTIVE")
            size: 9
            tracking: 1
            colour: Theme.success
            font.bold: true
        }
    }

    Panel {
        label: qsTr("HOW IT WORKS")
        labelSymbol: "info.circle"
        Layout.fillWidth: true

        BodyText {
            text: qsTr("Watch Folder monitors your source folder for new files. When new photos or videos appear — from a camera card, cloud sync, or another device — Vellomar automatically sorts them to the destination using your current settings.")
            Layout.fillWidth: true
        }
    }
    WatchedPath {
        name: qsTr("Source")
        path: root.model.source
        Layout.fillWidth: true
    }
    WatchedPath {
        name: qsTr("Destination")
        path: root.model.destination
        Layout.fillWidth: true
    }
    OptionToggle {
        label: qsTr("Dry run")
        subLabel: checked ? qsTr("New files are only planned; nothing is copied or moved.")
            : qsTr("New files are sorted for real, as they arrive.")
        checked: root.model.isDryRun
        enabled: !root.model.isWatching
        opacity: enabled ? 1 : 0.5
        onToggled: isOn => root.model.setDryRun(isOn)
        Layout.leftMargin: -10
        Layout.rightMargin: -10
        Layout.fillWidth: true
    }
    RowLayout {
        spacing: 12
        visible: root.model.isWatching
        Layout.fillWidth: true

        StatCard {
            label: qsTr("FILES PROCESSED")
            value: root.model.filesProcessed
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
        }
        StatCard {
            label: qsTr("LAST ACTIVITY")
            value: root.model.lastActivity === "" ? qsTr("Waiting") : root.model.lastActivity
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
        }
    }
    PrimaryButton {
        objectName: "startWatching"
        text: qsTr("START WATCHING")
        symbol: "eye.fill"
        visible: !root.model.isWatching
        enabled: root.model.canStart
        fill: enabled ? Theme.yellow : "#444400"
        opacity: 1
        Layout.fillWidth: true
        onClicked: root.model.start()
    }
    ActionButton {
        objectName: "stopWatching"
        text: qsTr("STOP WATCHING")
        symbol: "stop.fill"
        visible: root.model.isWatching
        colour: Theme.alertRed
        edge: Theme.alertRed
        hoverFill: Qt.alpha(Theme.alertRed, 0.12)
        Layout.fillWidth: true
        onClicked: root.model.stop()
    }
    WatchLog {
        lines: root.model.log
        visible: root.model.log.length > 0
        Layout.fillWidth: true
    }

    footer: [
        FooterNote {
            first: root.model.isWatching ? qsTr("Watching for new files…")
                : qsTr("Set source and destination first, then start watching.")
        },
        SecondaryButton {
            id: closeButton
            text: qsTr("CLOSE")
            onClicked: root.cancelled()
        }
    ]
}
