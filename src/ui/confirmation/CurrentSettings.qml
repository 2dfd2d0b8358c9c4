import QtQuick
import QtQuick.Layouts
import Vellomar

// "YOUR CURRENT SETTINGS": key and value a row.
ColumnLayout {
    id: root

    property alias rows: repeater.model

    spacing: 12

    CapitalLabel {
        text: qsTr("YOUR CURRENT SETTINGS")
        font.bold: true
    }

    Rectangle {
        implicitHeight: column.implicitHeight + 24
        color: Theme.inset
        radius: 4
        border.width: 1
        border.color: Theme.hairline
        Layout.fillWidth: true

        ColumnLayout {
            id: column
            anchors.fill: parent
            anchors.margins: 12
            spacing: 8

            Repeater {
                id: repeater

                RowLayout {
                    id: row

                    required property string symbol
                    required property color symbolColour
                    required property string key
                    required property string value

                    objectName: "setting"
                    spacing: 12
                    Layout.fillWidth: true
                    Accessible.role: Accessible.StaticText
                    Accessible.name: key + ": " + value

                    Item {
                        implicitWidth: 16
                        implicitHeight: 16

                        Symbol {
                            anchors.centerIn: parent
                            name: row.symbol
                            colour: row.symbolColour
                            size: 12
                        }
                    }

                    BodyText {
                        objectName: "settingKey"
                        text: row.key
                        colour: Theme.secondaryText
                        Layout.preferredWidth: 140
                        Accessible.ignored: true
                    }

                    BodyText {
                        objectName: "settingValue"
                        text: row.value
                        colour: Theme.text
                        Layout.fillWidth: true
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
