import QtQuick
import QtQuick.Layouts
import Vellomar

// One run that can be undone.
Rectangle {
    id: root

    required property int index
    required property string runDate
    required property bool isImported
    required property int operations
    required property string sourceRoot
    required property string destRoot
    required property int moved
    required property int copied
    required property bool isSelected
    property bool hasFocus: false

    signal chosen

    component CountText: Row {
        required property string symbol
        property alias text: label.text
        property color colour

        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: parent.symbol
            colour: parent.colour
            size: 10
        }

        BodyText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            size: 10
            colour: parent.colour
            wrapMode: Text.NoWrap
        }
    }

    component Chip: Rectangle {
        property alias text: chipLabel.text
        property alias colour: chipLabel.colour

        implicitWidth: chipLabel.implicitWidth + 12
        implicitHeight: 18
        radius: 3

        CapitalLabel {
            id: chipLabel
            anchors.centerIn: parent
            size: 9
            tracking: 1
            font.capitalization: Font.MixedCase
            font.bold: true
        }
    }

    component PathLine: BodyText {
        size: 10
        colour: Theme.secondaryText
        elide: Text.ElideMiddle
        wrapMode: Text.NoWrap
        Layout.fillWidth: true
    }

    implicitHeight: column.implicitHeight + 28
    color: isSelected || hover.hovered ? Theme.rowTint : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: runDate
    Accessible.description: `${opsChip.text}, ${sourceLine.text}, ${destLine.text}, ${movedCount.text}, ${copiedCount.text}`
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: chosen()

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: root.chosen()
    }

    Rectangle {
        objectName: "accentBar"
        width: 3
        height: parent.height
        color: root.isSelected ? Theme.yellow : "transparent"
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }

    FocusRing {
        gap: -1
        radius: 0
        border.width: 1
        shown: root.hasFocus
    }

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 24
        anchors.topMargin: 14
        anchors.bottomMargin: 14
        spacing: 4

        RowLayout {
            spacing: 8
            Layout.bottomMargin: 2

            BodyText {
                objectName: "runDate"
                text: root.runDate
                size: 12
                colour: Theme.text
                font.bold: true
                elide: Text.ElideRight
                wrapMode: Text.NoWrap
            }

            Chip {
                objectName: "importedBadge"
                text: qsTr("IMPORTED")
                colour: Theme.success
                color: Theme.importedBadge
                visible: root.isImported
            }

            Item {
                Layout.fillWidth: true
            }

            Chip {
                id: opsChip
                objectName: "operations"
                text: qsTr("%1 ops").arg(root.operations)
                colour: Theme.bodyText
                color: Theme.brightPanel
            }
        }

        PathLine {
            id: sourceLine
            objectName: "sourceRoot"
            text: qsTr("SRC  %1").arg(root.sourceRoot)
        }

        PathLine {
            id: destLine
            objectName: "destRoot"
            text: qsTr("DEST %1").arg(root.destRoot)
        }

        Row {
            spacing: 20
            Layout.topMargin: 4

            CountText {
                id: movedCount
                objectName: "moved"
                symbol: "arrow.right"
                text: qsTr("%1 moved").arg(root.moved)
                colour: Theme.yellow
            }

            CountText {
                id: copiedCount
                objectName: "copied"
                symbol: "doc.on.doc"
                text: qsTr("%1 copied").arg(root.copied)
                colour: Theme.success
            }
        }
    }
}
