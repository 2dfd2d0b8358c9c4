import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vellomar

// One folder: its name, where it lies, and a way to take it out.
Rectangle {
    id: row

    property string pictograph
    required property string name
    required property string shortPath
    required property string path
    required property bool isMissing

    signal removed

    implicitWidth: 80
    implicitHeight: 48
    radius: 4
    color: hover.hovered ? Theme.rowTint : Theme.inset
    border.width: 1
    border.color: row.isMissing ? Theme.alertRed : Theme.hairline
    Accessible.role: Accessible.ListItem
    Accessible.name: row.isMissing ? qsTr("%1, not found").arg(row.path) : row.path

    HoverHandler {
        id: hover
    }
    ToolTip.visible: hover.hovered
    ToolTip.delay: 600
    ToolTip.text: row.path

    RowLayout {
        anchors {
            fill: parent
            leftMargin: 8
            rightMargin: 4
        }
        spacing: 8

        Text {
            text: row.pictograph
            font.pixelSize: 14
            Accessible.ignored: true
        }
        ColumnLayout {
            spacing: 2
            Layout.fillWidth: true

            Text {
                text: row.name
                color: Theme.text
                elide: Text.ElideMiddle
                font.family: Theme.fontFamily
                font.pixelSize: 11
                textFormat: Text.PlainText
                Accessible.ignored: true
                Layout.fillWidth: true
            }
            Text {
                text: row.isMissing ? qsTr("Not found") : row.shortPath
                color: row.isMissing ? Theme.alertRed : Theme.tertiaryText
                elide: Text.ElideMiddle
                font.family: Theme.fontFamily
                font.pixelSize: 9
                textFormat: Text.PlainText
                Accessible.ignored: true
                Layout.fillWidth: true
            }
        }
        CloseButton {
            Accessible.name: qsTr("Remove %1").arg(row.name)
            Accessible.description: ""
            onClicked: row.removed()
        }
    }
}
