import QtQuick
import QtQuick.Templates as T
import Vellomar

// A "?" that explains what it stands beside, once clicked and until it is clicked again. No two explanations
// are open at a time.
T.AbstractButton {
    id: root

    property string tooltip
    property color tooltipColour: Theme.popoverText
    readonly property bool isOpen: popover.visible

    implicitWidth: 22
    implicitHeight: 22
    text: "?"
    Accessible.role: Accessible.Button
    Accessible.name: tooltip
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }
    Keys.onReturnPressed: event => activate(event)
    Keys.onEnterPressed: event => activate(event)
    onClicked: popover.visible ? popover.close() : popover.open()

    function activate(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }

    background: Item {
        Rectangle {
            objectName: "circle"
            anchors.centerIn: parent
            width: 14
            height: 14
            radius: 7
            color: root.hovered || root.isOpen ? Theme.edge : "transparent"
            border.width: 1
            border.color: Theme.faintText

            FocusRing {
                shown: root.visualFocus
                radius: height / 2
            }
        }
    }

    contentItem: Text {
        text: root.text
        color: root.hovered || root.isOpen ? Theme.text : Theme.tertiaryText
        font.family: Theme.fontFamily
        font.pixelSize: 8
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    T.Popup {
        id: popover

        x: (root.width - width) / 2
        y: root.height + 4
        width: 240
        height: implicitContentHeight + topPadding + bottomPadding
        margins: 8
        padding: 12
        focus: true
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
        onAboutToShow: OpenExplanation.replaceBy(popover)
        // Unless another one took its place.
        onClosed: {
            if (OpenExplanation.popover === popover)
                root.forceActiveFocus(Qt.OtherFocusReason);
        }

        background: Rectangle {
            objectName: "popover"
            color: Theme.popover
            radius: 6
            border.width: 1
            border.color: Theme.brightEdge
        }

        contentItem: BodyText {
            objectName: "popoverText"
            text: root.tooltip
            colour: root.tooltipColour
            focus: true
        }
    }
}
