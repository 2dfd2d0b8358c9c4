import QtQuick
import QtQuick.Layouts
import Vellomar

// A box with a label above what it holds, at the width that it is given.
Rectangle {
    id: root

    property string label
    property string labelSymbol
    property bool bright: false
    property int padding: 12
    property int spacing: 8
    default property alias content: content.data

    implicitWidth: column.implicitWidth + 2 * padding
    implicitHeight: column.implicitHeight + 2 * padding
    color: bright ? Theme.brightPanel : Theme.sidePanel
    radius: 4
    border.width: 1
    border.color: bright ? Theme.brightEdge : Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: root.padding
        spacing: root.spacing

        RowLayout {
            spacing: 6
            visible: root.label !== ""
            Layout.fillWidth: true

            Symbol {
                name: root.labelSymbol
                colour: Theme.secondaryText
                visible: name !== ""
            }
            CapitalLabel {
                objectName: "panelLabel"
                text: root.label
                Layout.fillWidth: true
            }
        }

        ColumnLayout {
            id: content
            spacing: root.spacing
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
    }
}
