import QtQuick
import QtQuick.Layouts
import Vellomar

// One number of a run, large, above what it counts. "—" stands for none, and is never yellow.
Rectangle {
    id: root

    property string value: "—"
    property string label
    property bool accent: false
    property int valueSize: value.length > 13 ? 13 : value.length > 8 ? 16 : 20

    implicitWidth: column.implicitWidth + 40
    implicitHeight: column.implicitHeight + 32
    color: Theme.sidePanel
    radius: 4
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.topMargin: 16
        anchors.bottomMargin: 16
        anchors.leftMargin: 20
        anchors.rightMargin: 20
        spacing: 4

        Text {
            objectName: "cardValue"
            text: root.value
            color: root.accent && root.value !== "—" ? Theme.yellow : Theme.text
            elide: Text.ElideRight
            font.family: Theme.fontFamily
            font.pixelSize: root.valueSize
            font.bold: true
            textFormat: Text.PlainText
            Layout.fillWidth: true
            Accessible.ignored: true
        }

        CapitalLabel {
            objectName: "cardLabel"
            text: root.label
            colour: Theme.text
            opacity: 0.7
            Layout.fillWidth: true
            Accessible.ignored: true
        }
    }
}
