import QtQuick
import QtQuick.Layouts
import Vellomar

// Over the list while a file is dragged above it.
Rectangle {
    color: Qt.alpha(Theme.yellowTint, 0.94)

    DashedEdge {
        anchors.fill: parent
        anchors.margins: 12
        colour: Theme.yellow
    }

    ColumnLayout {
        anchors.centerIn: parent
        spacing: 12

        Symbol {
            name: "arrow.down.circle.fill"
            colour: Theme.yellow
            size: 36
            Layout.alignment: Qt.AlignHCenter
        }

        CapitalLabel {
            objectName: "dropToImport"
            text: qsTr("DROP TO IMPORT")
            size: 12
            colour: Theme.yellow
            font.bold: true
            Layout.alignment: Qt.AlignHCenter
        }
    }
}
