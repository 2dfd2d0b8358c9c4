import QtQuick
import QtQuick.Layouts
import Vellomar

// How the sorted files are named.
Panel {
    id: panel

    required property NamingChoice naming

    label: qsTr("NAMING STYLE")
    padding: 16
    spacing: 12

    NamingTabs {
        naming: panel.naming
        Layout.fillWidth: true
    }
    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        CapitalLabel {
            text: qsTr("PREVIEW →")
            size: 9
            colour: Theme.tertiaryText
        }
        BodyText {
            objectName: "namingExample"
            text: panel.naming.example
            colour: Theme.yellow
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            Layout.fillWidth: true
        }
    }
    BodyText {
        objectName: "namingDescription"
        text: panel.naming.description
        size: 9
        colour: Theme.secondaryText
        Layout.fillWidth: true
    }
    CustomFormatEditor {
        naming: panel.naming
        visible: panel.naming.isCustom
        Layout.fillWidth: true
    }
}
