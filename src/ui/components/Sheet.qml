import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vellomar

// A panel over the window, which is out of reach meanwhile: a header, a body that scrolls when it is too high, and a
// footer. It never closes itself: Escape and the ✕ ask for it by `cancelled`; a click beside it does nothing.
//
// The keyboard's focus starts on `initialFocus`, which is to be the safe choice, stays inside, and goes back to where it
// came from. Return is `confirmed`, until the user moves the focus to a button: then it is that button's. Up to then the
// focus follows `initialFocus` when that changes.
ModalPopup {
    id: root

    property bool hasHeader: true  // else the body brings its own
    property string symbol
    property color symbolColour: Theme.yellow
    property string title
    property int titleSize: 18
    property color titleColour: Theme.yellow
    property string titleNote  // behind the title
    property string subtitle
    property color subtitleColour: Theme.bodyText
    property int subtitleElide: Text.ElideNone  // else it keeps to one line
    property int minimumWidth: 560
    property int minimumHeight: 0
    property int bodyPadding: 24
    property int bodySpacing: 12
    property bool scrolls: true  // else the body has the height that is there, and what it holds scrolls
    property var keyScrolled: scrolls ? area : null  // by the keys that nothing else takes; has a scrollBy()
    property bool canConfirm: true
    property Item initialFocus: closeButton
    property Item startedOn: null
    property alias headerLead: lead.data  // before the title and what stands below it
    property alias titleLead: titleLeadRow.data  // before the title alone
    property alias headerActions: actions.data
    property alias footer: footerRow.data
    property alias cover: coverItem.data  // over all the rest
    property alias scrollArea: area
    default property alias body: bodyColumn.data

    signal cancelled
    signal confirmed

    readonly property int availableRoom: 2 * 32
    readonly property bool isUntouched: opened && startedOn !== null && startedOn.activeFocus
        && !(startedOn as T.Control)?.visualFocus

    anchors.centerIn: parent
    width: Math.min(minimumWidth, (parent?.width ?? 0) - availableRoom)
    height: Math.min(Math.max(minimumHeight, frame.implicitHeight), (parent?.height ?? 0) - availableRoom)

    onOpened: start()
    onInitialFocusChanged: later.restart()

    function start() {
        startedOn = initialFocus;
        startedOn.forceActiveFocus(Qt.OtherFocusReason);
    }

    T.Overlay.modal: Rectangle {
        objectName: "scrim"
        color: Qt.alpha(Theme.windowBackground, 0.72)
    }

    background: Rectangle {
        objectName: "sheetBackground"
        color: Theme.windowBackground
        radius: 8
    }

    // What is to have the focus may not be visible yet.
    Timer {
        id: later
        interval: 0
        onTriggered: {
            if (root.isUntouched)
                root.start();
        }
    }

    Shortcut {
        sequences: ["Return", "Enter"]
        autoRepeat: false
        enabled: root.isUntouched && root.canConfirm
        onActivated: root.confirmed()
    }

    FocusScope {
        id: frame
        objectName: "sheet"
        anchors.fill: parent
        implicitHeight: column.implicitHeight
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: root.subtitle
        Keys.onEscapePressed: root.cancelled()
        Keys.onReturnPressed: event => confirm(event)
        Keys.onEnterPressed: event => confirm(event)
        Keys.onPressed: event => event.accepted = root.keyScrolled?.scrollBy(event.key) ?? false

        function confirm(event: KeyEvent) {
            if (root.canConfirm && !event.isAutoRepeat)
                root.confirmed();
        }

        ColumnLayout {
            id: column
            anchors.fill: parent
            spacing: 0

            SheetBar {
                objectName: "sheetHeader"
                visible: root.hasHeader
                contentHeight: headerRow.implicitHeight
                radius: 8
                Layout.fillWidth: true

                RowLayout {
                    id: headerRow
                    anchors.fill: parent
                    anchors.margins: 16
                    anchors.leftMargin: 24
                    spacing: 8

                    Row {
                        id: lead
                        visible: children.length > 0
                        Layout.rightMargin: 4
                    }

                    ColumnLayout {
                        spacing: 4
                        Layout.fillWidth: true
                        Layout.maximumWidth: Infinity  // else as wide as the title

                        Row {
                            spacing: 10

                            Row {
                                id: titleLeadRow
                                anchors.verticalCenter: parent.verticalCenter
                                visible: children.length > 0
                            }
                            Symbol {
                                objectName: "sheetSymbol"
                                anchors.verticalCenter: parent.verticalCenter
                                name: root.symbol
                                colour: root.symbolColour
                                size: root.titleSize
                                visible: name !== ""
                            }

                            Text {
                                objectName: "sheetTitle"
                                anchors.verticalCenter: parent.verticalCenter
                                text: root.title
                                color: root.titleColour
                                font.family: Theme.fontFamily
                                font.pixelSize: root.titleSize
                                font.bold: true
                                font.letterSpacing: 2
                                textFormat: Text.PlainText
                                Accessible.role: Accessible.Heading
                                Accessible.name: text
                            }

                            BodyText {
                                objectName: "sheetTitleNote"
                                anchors.verticalCenter: parent.verticalCenter
                                text: root.titleNote
                                size: 12
                                colour: Theme.secondaryText
                                wrapMode: Text.NoWrap
                                visible: text !== ""
                            }
                        }

                        BodyText {
                            objectName: "sheetSubtitle"
                            text: root.subtitle
                            colour: root.subtitleColour
                            elide: root.subtitleElide
                            wrapMode: root.subtitleElide === Text.ElideNone ? Text.Wrap : Text.NoWrap
                            visible: text !== ""
                            Layout.fillWidth: true
                        }
                    }

                    RowLayout {
                        id: actions
                        spacing: 8
                        Layout.fillWidth: false
                        Layout.alignment: Qt.AlignTop
                    }

                    CloseButton {
                        id: closeButton
                        objectName: "sheetClose"
                        Layout.alignment: Qt.AlignTop
                        onClicked: root.cancelled()
                    }
                }
            }

            ScrollArea {
                id: area
                padding: root.bodyPadding
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredHeight: root.scrolls ? implicitHeight : 0

                ColumnLayout {
                    id: bodyColumn
                    width: parent.width
                    height: root.scrolls ? implicitHeight : area.height - 2 * root.bodyPadding
                    spacing: root.bodySpacing
                }
            }

            SheetBar {
                objectName: "sheetFooter"
                atTop: false
                contentHeight: footerRow.implicitHeight
                radius: 8
                visible: footerRow.children.length > 0
                Layout.fillWidth: true

                RowLayout {
                    id: footerRow
                    anchors.fill: parent
                    anchors.margins: 16
                    anchors.leftMargin: 24
                    anchors.rightMargin: 24
                    spacing: 12
                }
            }
        }

        Item {
            id: coverItem
            anchors.fill: parent
        }

        // Over the bands, which would hide it otherwise.
        Rectangle {
            anchors.fill: parent
            color: "transparent"
            radius: 8
            border.width: 1
            border.color: Theme.hairline
        }
    }
}
