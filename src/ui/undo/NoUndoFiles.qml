import QtQuick
import QtQuick.Layouts
import Vellomar

// Where the list would be: a place to drop a file on.
DashedEdge {
    id: root

    property bool isHovered: false

    colour: isHovered ? Theme.yellow : Theme.faintText
    fill: isHovered ? Theme.yellowTint : "transparent"

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(440, parent.width - 32)
        spacing: 12

        Symbol {
            objectName: "dropSymbol"
            name: root.isHovered ? "arrow.down.circle.fill" : "arrow.down.doc"
            colour: root.isHovered ? Theme.yellow : Theme.faintText
            size: 36
            Layout.alignment: Qt.AlignHCenter
        }

        BodyText {
            objectName: "dropHeading"
            text: root.isHovered ? qsTr("Drop to import") : qsTr("No undo files found in destination folder.")
            size: 12
            colour: root.isHovered ? Theme.yellow : Theme.secondaryText
            horizontalAlignment: Text.AlignHCenter
            Layout.fillWidth: true
        }

        BodyText {
            objectName: "dropHint"
            text: qsTr("Drag a _vellomar_undo_*.json file here, or click IMPORT JSON above.")
            size: 10
            colour: Theme.tertiaryText
            horizontalAlignment: Text.AlignHCenter
            opacity: root.isHovered ? 0 : 1
            Layout.fillWidth: true
        }
    }
}
