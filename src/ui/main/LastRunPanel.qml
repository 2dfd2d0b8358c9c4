import QtQuick
import QtQuick.Layouts
import Vellomar

// What the last run did, and the way back.
Rectangle {
    id: panel
    objectName: "lastRunPanel"

    required property ContentViewModel content
    readonly property RunStatus status: content.status

    color: Theme.sidePanel

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    ColumnLayout {
        anchors {
            fill: parent
            leftMargin: 16
            rightMargin: 16
            topMargin: 12
            bottomMargin: 12
        }
        spacing: 8

        CapitalLabel {
            text: qsTr("LAST RUN")
        }
        BodyText {
            visible: !panel.status.hasResults
            text: qsTr("Run a sort to see stats here")
            size: 10
            colour: Theme.tertiaryText
            Layout.fillWidth: true
        }
        SmallCardGrid {
            visible: panel.status.hasResults
            labels: panel.status.lastRunLabels
            values: panel.status.lastRunValues
            Layout.fillWidth: true
        }
        ToolRowButton {
            visible: panel.status.hasResults
            text: qsTr("Undo Last Run")
            capitals: false
            symbol: "arrow.uturn.backward"
            enabled: panel.content.undo.canOpen
            onClicked: panel.content.undo.open()
            Layout.fillWidth: true
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
