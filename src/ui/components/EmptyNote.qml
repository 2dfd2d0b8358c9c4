import QtQuick
import QtQuick.Layouts
import Vellomar

// Stands in place of rows: a symbol, what it means, and perhaps what can be done about it.
ColumnLayout {
    id: root

    property string symbol
    property int symbolSize: 28
    property color symbolColour: Theme.edge
    property string title
    property string text
    property int textWidth: 340
    property string actionText
    property bool offersAction: actionText !== ""

    signal actionChosen

    spacing: 10

    Symbol {
        objectName: "emptySymbol"
        name: root.symbol
        size: root.symbolSize
        colour: root.symbolColour
        Layout.alignment: Qt.AlignHCenter
    }
    BodyText {
        text: root.title
        size: 12
        colour: Theme.secondaryText
        horizontalAlignment: Text.AlignHCenter
        visible: text !== ""
        Layout.maximumWidth: root.textWidth
        Layout.alignment: Qt.AlignHCenter
    }
    BodyText {
        text: root.text
        colour: Theme.tertiaryText
        horizontalAlignment: Text.AlignHCenter
        visible: text !== ""
        Layout.preferredWidth: Math.min(root.textWidth, root.width)
        Layout.alignment: Qt.AlignHCenter
    }
    SecondaryButton {
        text: root.actionText
        accent: true
        capitals: false
        implicitHeight: 28
        visible: root.offersAction
        onClicked: root.actionChosen()
        Layout.alignment: Qt.AlignHCenter
    }
}
