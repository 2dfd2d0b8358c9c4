import QtQuick
import QtQuick.Layouts
import Vellomar

// Every option of a run that is on or off, on two tabs.
ColumnLayout {
    id: panel

    required property OptionsPanelModel options
    property alias tools: advanced.tools  // below the advanced options

    spacing: 8

    CapitalLabel {
        text: qsTr("Options")
        Layout.preferredHeight: 20
    }
    RowLayout {
        spacing: 4
        Layout.fillWidth: true

        Pill {
            text: qsTr("BASIC")
            radius: 3
            isChosen: !panel.options.showsAdvanced
            onClicked: panel.options.showsAdvanced = false
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        Pill {
            text: qsTr("ADVANCED")
            radius: 3
            isChosen: panel.options.showsAdvanced
            onClicked: panel.options.showsAdvanced = true
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
    }
    BasicOptions {
        options: panel.options
        visible: !panel.options.showsAdvanced
        Layout.fillWidth: true
    }
    AdvancedOptions {
        id: advanced
        options: panel.options
        visible: panel.options.showsAdvanced
        Layout.fillWidth: true
    }
}
