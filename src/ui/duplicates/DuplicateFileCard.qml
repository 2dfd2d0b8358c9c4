import QtQuick
import Vellomar

// One file of a group: whether it is the one to keep, and what there is to know of it. That has the picture, which
// all of them have in common.
FocusScope {
    id: card
    objectName: "fileCard"

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

    // Placed by hand: nested layouts would ask a text for its height before they know its width, and keep the answer.
    component Fact: Item {
        required property string key
        property alias value: valueText.text

        width: parent?.width ?? 0
        implicitHeight: Math.max(keyText.implicitHeight, valueText.implicitHeight)

        BodyText {
            id: keyText
            objectName: "factKey"
            text: parent.key
            size: 10
            colour: Theme.secondaryText
            wrapMode: Text.NoWrap
            width: 55
            Accessible.ignored: true
        }
        SelectableText {
            id: valueText
            objectName: "factValue"
            size: 10
            colour: Theme.brighterBodyText
            wrapMode: TextEdit.WrapAnywhere
            x: 55 + 8
            width: Math.max(0, parent.width - x)
            Accessible.ignored: true
        }
    }

    // Never next to nothing, not even before it is laid out: a list makes rows until it is full.
    height: Math.max(120, facts.y + Math.max(facts.implicitHeight, isKept ? picture.size : 0) + padding)
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
    CapitalLabel {
        objectName: "cardHeading"
        anchors {
            left: parent.left
            right: reveal.left
            verticalCenter: reveal.verticalCenter
            leftMargin: card.padding
            rightMargin: 8
        }
        text: card.heading
        colour: card.isKept ? Theme.success : Theme.duplicateOrange
        font.bold: true
        Accessible.ignored: true
    }
    ActionButton {
        id: reveal
        anchors {
            right: parent.right
            top: parent.top
            margins: card.padding
        }
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
    ThumbnailView {
        id: picture
        x: card.padding
        y: facts.y
        size: 120
        source: card.thumbnail
        visible: card.isKept
    }
    Column {
        id: facts
        objectName: "facts"
        x: card.padding + (card.isKept ? picture.size + 12 : 0)
        y: reveal.y + reveal.height + 10
        width: card.width - x - card.padding
        spacing: 4

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
