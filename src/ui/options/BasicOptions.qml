import QtQuick
import QtQuick.Layouts
import Vellomar

// The tab with the options that most runs need.
ColumnLayout {
    id: tab

    required property OptionsPanelModel options

    spacing: 12

    OptionList {
        options: tab.options
        rows: tab.options.basic
        Layout.fillWidth: true
    }
    ConflictRow {
        options: tab.options
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.fillWidth: true
    }
    BodyText {
        text: qsTr("Select at least one file type in Advanced")
        colour: Theme.alertRed
        size: 10
        visible: tab.options.lacksFileTypes
        Layout.leftMargin: 10
        Layout.fillWidth: true
    }
}
