import QtQuick
import QtQuick.Layouts
import Vellomar

// The two ways to begin.
ColumnLayout {
    id: row

    required property RunFlow run

    spacing: 8

    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        DryRunActionButton {
            enabled: row.run.canStart
            onClicked: row.run.askDryRun()
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        SortPhotosActionButton {
            enabled: row.run.canStart
            onClicked: row.run.askRun()
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
    }
    BodyText {
        text: qsTr("Run Dry Run first to preview every file move before sorting")
        size: 10
        colour: Theme.tertiaryText
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
    }
}
