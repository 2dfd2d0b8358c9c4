import QtQuick
import QtQuick.Layouts
import Vellomar

// Who the program is, and what it is doing.
Rectangle {
    id: header
    objectName: "headerBar"

    required property ContentViewModel content

    implicitHeight: 72
    color: Theme.inset

    RowLayout {
        anchors {
            fill: parent
            leftMargin: 20
            rightMargin: 20
        }
        spacing: 12

        Wordmark {
            size: 15
        }
        ActionButton {
            objectName: "versionChip"
            text: "v4.6"
            // It names the version as it is, small letters and all.
            capitals: false
            implicitHeight: 19
            leftPadding: 6
            rightPadding: 6
            labelSize: 9
            colour: Theme.tertiaryText
            fill: Theme.sidePanel
            hoverFill: Theme.brightPanel
            edge: Theme.edge
            onClicked: header.content.changelog.open()
        }
        CapitalLabel {
            text: qsTr("VELLOMAR ORGANIZER")
            size: 10
            tracking: 2
            colour: Theme.secondaryText
            Layout.fillWidth: !paw.visible
        }
        FloppyPaw {
            id: paw
            visible: header.content.floppyMode
            onClicked: header.content.toggleFloppyMode()
        }
        Item {
            visible: paw.visible
            Layout.fillWidth: true
        }
        SymbolButton {
            symbol: "questionmark.circle"
            name: qsTr("Open help")
            implicitWidth: 28
            implicitHeight: 28
            radius: 14
            symbolSize: 18
            onClicked: header.content.help.open()
        }
        StatusPillView {
            isRunning: header.content.status.isRunning
            statusText: header.content.status.statusText
        }
    }
    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        height: 1
        color: Theme.hairline
    }
}
