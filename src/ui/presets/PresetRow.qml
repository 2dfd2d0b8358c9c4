import QtQuick
import QtQuick.Layouts
import Vellomar

// One preset: its name, what tells it from others, and what can be done with it.
Rectangle {
    id: row

    required property int index
    required property string name
    required property string details

    signal loaded
    signal deleted

    implicitHeight: 48
    color: hover.hovered ? Theme.rowTint : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: row.name
    Accessible.description: row.details

    HoverHandler {
        id: hover
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 20
        spacing: 8

        ColumnLayout {
            spacing: 2
            Layout.fillWidth: true

            BodyText {
                objectName: "presetName"
                text: row.name
                size: 12
                colour: Theme.text
                elide: Text.ElideMiddle
                wrapMode: Text.NoWrap
                Accessible.ignored: true
                Layout.fillWidth: true
            }
            BodyText {
                objectName: "presetDetails"
                text: row.details
                size: 10
                colour: Theme.tertiaryText
                Accessible.ignored: true
                Layout.fillWidth: true
            }
        }
        SecondaryButton {
            text: qsTr("LOAD")
            accent: true
            implicitHeight: 28
            Accessible.name: qsTr("Load %1").arg(row.name)
            onClicked: row.loaded()
        }
        CloseButton {
            Accessible.name: qsTr("Delete %1").arg(row.name)
            Accessible.description: ""
            onClicked: row.deleted()
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
