import QtQuick
import Vellomar

// The topic that is read, or that nothing was found. Its text can be selected and copied, by mouse and keys.
Item {
    id: root

    required property Help model

    function scrollBy(key: int): bool {
        return area.scrollBy(key);
    }

    Column {
        objectName: "noResults"
        anchors.centerIn: parent
        width: parent.width - 48
        spacing: 12
        visible: !root.model.hasTopic

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "magnifyingglass"
            colour: Theme.edge
            size: 32
        }
        BodyText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("No results for \"%1\"").arg(root.model.searchText)
            size: 12
            colour: Theme.tertiaryText
        }
    }
    ScrollArea {
        id: area
        anchors.fill: parent
        padding: 24
        visible: root.model.hasTopic

        Column {
            width: parent.width
            spacing: 16

            Item {
                width: parent.width
                height: Math.max(18, title.implicitHeight)

                Symbol {
                    y: 1
                    name: root.model.icon
                    colour: Theme.yellow
                    size: 16
                }
                BodyText {
                    id: title
                    objectName: "readTitle"
                    x: 28
                    width: Math.max(0, parent.width - x)
                    text: root.model.title
                    size: 15
                    colour: Theme.text
                    font.bold: true
                    Accessible.role: Accessible.Heading
                }
            }
            SelectableText {
                objectName: "readContent"
                width: parent.width
                text: root.model.content
                size: 12
                colour: Theme.brighterBodyText
                activeFocusOnTab: true
                selectByKeyboard: true
                onTextChanged: {
                    cursorPosition = 0;
                    area.contentY = 0;
                }
            }
            PrimaryButton {
                objectName: "readAction"
                text: root.model.actionLabel
                symbol: "arrow.up.right.square"
                leftPadding: 16
                rightPadding: 16
                topPadding: 8
                bottomPadding: 8
                radius: 7
                visible: root.model.actionLabel !== ""
                onClicked: root.model.openAction()
            }
        }
    }
}
