import QtQuick
import QtQuick.Layouts
import Vellomar

// Stands where a file tells nothing, or has not told it yet.
ColumnLayout {
    id: root

    required property Inspector model
    required property string symbol
    required property string text

    spacing: 12

    Symbol {
        name: root.model.isReading ? "arrow.triangle.2.circlepath" : root.symbol
        size: 28
        colour: Theme.edge
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 48
    }
    BodyText {
        objectName: "inspectorEmpty"
        text: root.model.isReading ? qsTr("Reading…") : root.text
        colour: Theme.tertiaryText
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
        Layout.bottomMargin: 48
    }
}
