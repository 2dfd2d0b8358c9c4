import QtQuick
import Vellomar

// What stands in the middle of a button: a symbol and a label, or one of both.
Item {
    id: root

    property string symbol
    property string text
    property color colour: Theme.text
    property int symbolSize: 10
    property int labelSize: 10
    property real tracking: 1
    property bool capitals: true

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row
        anchors.verticalCenter: parent.verticalCenter
        // The last letter is followed by the distance to the next, which there is none.
        x: Math.round((parent.width - width + root.tracking) / 2)
        spacing: 6

        Symbol {
            objectName: "symbol"
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            colour: root.colour
            size: root.symbolSize
            visible: name !== ""
        }

        CapitalLabel {
            objectName: "label"
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            size: root.labelSize
            tracking: root.tracking
            colour: root.colour
            font.bold: true
            font.capitalization: root.capitals ? Font.AllUppercase : Font.MixedCase
            visible: text !== ""
            Accessible.ignored: true
        }
    }
}
