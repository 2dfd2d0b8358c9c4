import QtQuick
import QtQuick.Layouts
import Vellomar

// How many files of each kind the scan kept.
ColumnLayout {
    id: breakdown

    required property RunStatus status

    spacing: 4

    CapitalLabel {
        text: qsTr("Breakdown")
        Layout.preferredHeight: 20
    }
    Repeater {
        model: [
            {name: qsTr("Images"), count: breakdown.status.images},
            {name: qsTr("Videos"), count: breakdown.status.videos},
            {name: qsTr("Other"), count: breakdown.status.others}
        ]

        RowLayout {
            id: row

            required property var modelData

            spacing: 8
            Layout.fillWidth: true

            BodyText {
                text: row.modelData.name
                size: 10
                colour: Theme.secondaryText
                Layout.fillWidth: true
            }
            BodyText {
                text: row.modelData.count
                size: 10
                colour: Theme.text
            }
        }
    }
}
