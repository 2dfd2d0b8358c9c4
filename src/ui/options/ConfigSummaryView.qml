import QtQuick
import QtQuick.Layouts
import Vellomar

// All settings at a glance.
ColumnLayout {
    id: summary

    // Each with "heading" and "rows", each of those with "key", "value" and "colour".
    property alias sections: repeater.model

    spacing: 12

    CapitalLabel {
        text: qsTr("CONFIG")
        verticalAlignment: Text.AlignVCenter
        Layout.preferredHeight: 24
    }
    Repeater {
        id: repeater

        ColumnLayout {
            id: section

            required property var modelData

            spacing: 4
            Layout.fillWidth: true

            CapitalLabel {
                text: section.modelData.heading
                size: 8
                colour: Theme.tertiaryText
                Layout.fillWidth: true
            }
            Repeater {
                model: section.modelData.rows

                ConfigLine {
                    Layout.fillWidth: true
                }
            }
        }
    }
}
