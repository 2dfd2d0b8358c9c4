import QtQuick
import QtQuick.Layouts
import Vellomar

// The manual: topics that can be searched at the left, the one that is read at the right.
Sheet {
    id: root

    required property Help model

    title: qsTr("VELLOMAR HELP")
    hasHeader: false
    minimumWidth: 660
    minimumHeight: 600
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: reader
    canConfirm: false
    initialFocus: search
    onCancelled: model.dismiss()

    RowLayout {
        spacing: 0
        Layout.fillWidth: true
        Layout.fillHeight: true

        Rectangle {
            objectName: "helpColumn"
            color: Theme.inset
            radius: 8
            Layout.minimumWidth: 210
            Layout.maximumWidth: 210
            Layout.fillHeight: true

            ColumnLayout {
                anchors.fill: parent
                anchors.rightMargin: 1
                spacing: 0

                SearchField {
                    id: search
                    placeholderText: qsTr("Search help…")
                    fill: Theme.sidePanel
                    text: root.model.searchText
                    Layout.margins: 12
                    Layout.fillWidth: true
                    onTextEdited: root.model.searchText = text
                    Keys.onDownPressed: root.model.selectNext()
                    Keys.onUpPressed: root.model.selectPrevious()
                }
                HelpTopicList {
                    model: root.model
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                }
                SupportStrip {
                    model: root.model
                    Layout.fillWidth: true
                }
            }
            Rectangle {
                anchors.right: parent.right
                width: 1
                height: parent.height
                color: Theme.hairline
            }
        }
        ColumnLayout {
            spacing: 0
            Layout.fillWidth: true
            Layout.fillHeight: true

            RowLayout {
                spacing: 8
                Layout.fillWidth: true
                Layout.margins: 16
                Layout.leftMargin: 24

                Symbol {
                    name: "questionmark.circle.fill"
                    colour: Theme.yellow
                    size: 14
                }
                CapitalLabel {
                    objectName: "helpTitle"
                    text: root.title
                    size: 13
                    tracking: 1
                    colour: Theme.text
                    font.bold: true
                    Layout.fillWidth: true
                }
                CloseButton {
                    onClicked: root.cancelled()
                }
            }
            Rectangle {
                color: Theme.hairline
                implicitHeight: 1
                Layout.fillWidth: true
            }
            HelpReader {
                id: reader
                model: root.model
                Layout.fillWidth: true
                Layout.fillHeight: true
            }
        }
    }
}
