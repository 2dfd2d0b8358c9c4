import QtQuick
import QtQuick.Layouts
import Vellomar

// The options of one tab, a toggle each, under the titles of their sections.
ColumnLayout {
    id: list

    required property OptionsPanelModel options
    property alias rows: repeater.model
    property bool showsSections: true

    spacing: 0

    Repeater {
        id: repeater

        ColumnLayout {
            id: row

            required property string section
            required property bool isFirst
            required property string label
            required property string subLabel
            required property string tooltip
            required property bool isOn
            required property string key
            required property int index

            spacing: 4
            Layout.fillWidth: true

            SectionHeading {
                text: row.section
                visible: row.isFirst && ((row.parent as OptionList)?.showsSections ?? false)
                Layout.topMargin: row.index > 0 ? 12 : 4
                Layout.fillWidth: true
            }
            OptionToggle {
                label: row.label
                subLabel: row.subLabel
                tooltip: row.tooltip
                checked: row.isOn
                onToggled: isOn => (row.parent as OptionList).options.setOn(row.key, isOn)
                Layout.fillWidth: true
            }
        }
    }
}
