import QtQuick
import QtQuick.Layouts
import Vellomar

// The values of one respect, to be selected.
ColumnLayout {
    id: view

    required property FilterColumn column
    required property string symbol
    required property string title

    spacing: 0

    Rectangle {
        implicitHeight: 30
        color: Theme.sidePanel
        Layout.fillWidth: true

        RowLayout {
            anchors.fill: parent
            anchors.leftMargin: 12
            anchors.rightMargin: 8
            spacing: 8

            Symbol {
                name: view.symbol
                colour: Theme.secondaryText
            }
            CapitalLabel {
                text: view.title
                size: 9
                Layout.fillWidth: true
            }
            TextButton {
                text: qsTr("Clear")
                colour: Theme.alertRed
                visible: view.column.hasSelection
                Accessible.name: qsTr("Clear %1").arg(view.title)
                onClicked: view.column.clearSelection()
            }
        }
    }
    Item {
        implicitHeight: 180
        Layout.fillWidth: true

        BodyText {
            anchors.centerIn: parent
            text: qsTr("No data yet")
            colour: Theme.dimmerTertiaryText
            visible: view.column.count === 0
        }
        ScrollList {
            anchors.fill: parent
            model: view.column
            visible: count > 0
            Accessible.name: view.title

            delegate: FilterEntry {
                width: ListView.view.width
                onClicked: (ListView.view.model as FilterColumn).toggle(index)
            }
        }
    }
}
