import QtQuick
import QtQuick.Layouts
import Vellomar

// The tab with the options that few runs need.
ColumnLayout {
    id: tab

    required property OptionsPanelModel options
    property alias tools: toolSlot.data

    spacing: 8

    OptionList {
        options: tab.options
        rows: tab.options.advanced
        Layout.fillWidth: true
    }
    SectionHeading {
        text: qsTr("Files")
        Layout.topMargin: 4
        Layout.fillWidth: true
    }
    IncludeRow {
        options: tab.options
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.fillWidth: true
    }
    BodyText {
        text: qsTr("Select at least one type")
        colour: Theme.alertRed
        size: 10
        visible: tab.options.lacksFileTypes
        Layout.leftMargin: 10
        Layout.fillWidth: true
    }
    OptionList {
        options: tab.options
        rows: tab.options.files
        showsSections: false
        Layout.fillWidth: true
    }
    Rectangle {
        objectName: "toolDivider"
        implicitHeight: 1
        color: Theme.hairline
        Layout.topMargin: 4
        Layout.bottomMargin: 4
        Layout.fillWidth: true
    }
    Item {
        id: toolSlot
        implicitHeight: childrenRect.height
        Layout.fillWidth: true
    }
}
