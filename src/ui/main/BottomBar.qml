import QtQuick
import QtQuick.Layouts
import Vellomar

// What is going on, in one line, and the way out of it.
Rectangle {
    id: bar
    objectName: "bottomBar"

    required property ContentViewModel content

    implicitHeight: 44
    color: bar.content.status.isRunning ? "#110a0a" : Theme.sidePanel

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    RowLayout {
        anchors {
            fill: parent
            leftMargin: 20
            rightMargin: 12
        }
        spacing: 8

        PulsingDot {
            visible: bar.content.status.isRunning
        }
        Text {
            text: bar.content.status.bottomText
            color: bar.content.status.isRunning ? Theme.text : Theme.tertiaryText
            font.family: Theme.fontFamily
            font.pixelSize: 11
            elide: Text.ElideRight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Layout.fillWidth: true
        }
        ActionButton {
            text: qsTr("CANCEL")
            colour: enabled ? Theme.alertRed : Theme.tertiaryText
            fill: enabled ? "#2a0a0a" : "transparent"
            hoverFill: "#3a0e0e"
            edge: enabled ? Theme.alertRed : Theme.edge
            implicitHeight: 28
            enabled: bar.content.run.canCancel
            onClicked: bar.content.run.cancelRun()
        }
    }
}
