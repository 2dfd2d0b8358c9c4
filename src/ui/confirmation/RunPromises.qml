import QtQuick
import QtQuick.Layouts
import Vellomar

// What a run does, a line each, with a heading above.
ColumnLayout {
    id: root

    property string heading
    property alias rows: repeater.model

    spacing: 10

    CapitalLabel {
        text: root.heading
        font.bold: true
        Layout.bottomMargin: 2
    }

    Repeater {
        id: repeater

        RowLayout {
            id: row

            required property var modelData

            spacing: 12
            Layout.fillWidth: true

            Item {
                implicitWidth: 16
                implicitHeight: 16
                Layout.alignment: Qt.AlignTop

                Symbol {
                    objectName: "promiseSymbol"
                    anchors.centerIn: parent
                    name: row.modelData.symbol
                    colour: row.modelData.colour
                    size: 13
                }
            }

            BodyText {
                objectName: "promise"
                text: row.modelData.text
                colour: Theme.brighterBodyText
                Layout.fillWidth: true
            }
        }
    }
}
