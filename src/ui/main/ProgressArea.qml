import QtQuick
import QtQuick.Layouts
import Vellomar

// How far the run is: its stages, its status, and how much has gone through.
Rectangle {
    id: area

    required property RunStatus status

    implicitHeight: column.implicitHeight + 24
    color: Theme.windowBackground

    ColumnLayout {
        id: column
        anchors {
            left: parent.left
            right: parent.right
            verticalCenter: parent.verticalCenter
            leftMargin: 16
            rightMargin: 16
        }
        spacing: 8

        Pipeline {
            stage: area.status.stage
            Layout.fillWidth: true
        }
        RowLayout {
            spacing: 8
            Layout.fillWidth: true

            Text {
                text: area.status.progressText
                color: Theme.bodyText
                elide: Text.ElideRight
                font.family: Theme.fontFamily
                font.pixelSize: 11
                textFormat: Text.PlainText
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Layout.fillWidth: true
            }
            BodyText {
                text: area.status.percentage
                colour: Theme.yellow
                font.bold: true
            }
        }
        ProgressTrack {
            value: area.status.progress
            text: area.status.percentage
            Layout.fillWidth: true
        }
        RowLayout {
            spacing: 6
            visible: area.status.processedText !== ""
            Layout.fillWidth: true

            Symbol {
                name: "arrow.down.circle.fill"
                colour: Theme.tertiaryText
                size: 10
            }
            BodyText {
                text: qsTr("%1 processed").arg(area.status.processedText)
                size: 10
                colour: Theme.tertiaryText
            }
            Symbol {
                name: "gauge.high"
                colour: Theme.tertiaryText
                size: 10
                visible: area.status.speedText !== ""
                Layout.leftMargin: 8
            }
            BodyText {
                text: area.status.speedText
                size: 10
                colour: Theme.tertiaryText
                visible: text !== ""
                Layout.fillWidth: true
            }
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
