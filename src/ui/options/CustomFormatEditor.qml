import QtQuick
import QtQuick.Layouts
import Vellomar

// The custom style's format: tokens to put into it, the field, and what comes out.
ColumnLayout {
    id: editor

    required property NamingChoice naming

    spacing: 8

    CapitalLabel {
        text: qsTr("TAP TO INSERT · DRAG ONTO FIELD")
        size: 9
        colour: Theme.tertiaryText
        Layout.fillWidth: true
    }
    Flow {
        spacing: 4
        Layout.fillWidth: true

        Repeater {
            model: editor.naming.tokens

            TokenChip {
                id: chip

                required property string modelData

                token: modelData
                onClicked: (chip.parent.parent as CustomFormatEditor).naming.append(token)
            }
        }
    }
    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        TokenDropTextField {
            text: editor.naming.format
            onTextEdited: editor.naming.format = text
            onTextDropped: dropped => editor.naming.append(dropped)
            Layout.fillWidth: true
        }
        SecondaryButton {
            text: qsTr("RESET")
            onClicked: editor.naming.resetFormat()
        }
    }
    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        CapitalLabel {
            text: qsTr("PREVIEW")
            size: 9
            colour: Theme.tertiaryText
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 1
        }
        BodyText {
            objectName: "formatPreview"
            text: editor.naming.preview
            size: 10
            colour: Theme.yellow
            wrapMode: Text.WrapAnywhere
            Layout.fillWidth: true
        }
    }
}
