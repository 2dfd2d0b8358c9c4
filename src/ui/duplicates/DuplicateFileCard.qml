import QtQuick
import QtQuick.Layouts
import Vellomar

// One file of a group: whether it is the one to keep, and what there is to know of it. That has the picture, which
// all of them have in common.
FocusScope {
    id: card

    required property int index
    required property string heading
    required property bool isKept
    required property string fileName
    required property string destination
    required property string source
    required property string size
    required property string modified
    required property url thumbnail
    required property bool canReveal
    readonly property int padding: 12

    signal revealed

    component Fact: RowLayout {
        required property string key
        property alias value: valueText.text

        spacing: 8
        Layout.fillWidth: true

        BodyText {
            objectName: "factKey"
            text: parent.key
            size: 10
            colour: Theme.secondaryText
            Accessible.ignored: true
            Layout.minimumWidth: 55
            Layout.maximumWidth: 55
            Layout.alignment: Qt.AlignTop
        }
        SelectableText {
            id: valueText
            objectName: "factValue"
            size: 10
            colour: Theme.brighterBodyText
            wrapMode: TextEdit.WrapAnywhere
            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
    }

    // Never next to nothing, not even before it is laid out: a list makes rows until it is full.
    height: Math.max(120, column.implicitHeight + 2 * padding)
    Accessible.role: Accessible.ListItem
    Accessible.name: `${heading}: ${fileName}`
    Accessible.description: destination + further(source) + further(size) + further(modified)

    // What is read out of a fact behind another; nothing where it is not known.
    function further(fact: string): string {
        return fact === "" ? "" : ", " + fact;
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.sidePanel
        radius: 4
        border.width: 1
        border.color: Theme.hairline
    }
    ColumnLayout {
        id: column
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: card.padding
        }
        spacing: 10

        RowLayout {
            CapitalLabel {
                objectName: "cardHeading"
                text: card.heading
                colour: card.isKept ? Theme.success : Theme.duplicateOrange
                font.bold: true
                Accessible.ignored: true
                Layout.fillWidth: true
            }
            ActionButton {
                focus: true
                focusPolicy: Qt.ClickFocus  // the list is what Tab comes to
                text: qsTr("REVEAL IN FINDER")
                implicitHeight: 24
                leftPadding: 10
                rightPadding: 10
                labelSize: 9
                fill: Theme.popover
                edge: Theme.edge
                colour: Theme.secondaryText
                enabled: card.canReveal
                Accessible.description: enabled ? card.fileName : qsTr("Unavailable")
                onClicked: card.revealed()

                FocusRing {
                    shown: parent.activeFocus
                }
            }
        }
        RowLayout {
            spacing: 12

            ThumbnailView {
                size: 120
                source: card.thumbnail
                visible: card.isKept
                Layout.alignment: Qt.AlignTop
            }
            ColumnLayout {
                spacing: 4
                Layout.alignment: Qt.AlignTop

                Fact {
                    key: qsTr("File")
                    value: card.fileName
                }
                Fact {
                    key: qsTr("Dest")
                    value: card.destination
                }
                Fact {
                    key: qsTr("Source")
                    value: card.source
                    visible: card.source !== ""
                }
                Fact {
                    key: qsTr("Size")
                    value: card.size
                }
                Fact {
                    key: qsTr("Modified")
                    value: card.modified
                }
            }
        }
    }
}
