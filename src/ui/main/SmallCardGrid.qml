import QtQuick
import QtQuick.Layouts
import Vellomar

// Small cards in two columns.
GridLayout {
    id: grid

    property var labels: []
    property var values: []

    columns: 2
    columnSpacing: 8
    rowSpacing: 8

    Repeater {
        model: grid.labels.length

        SmallCard {
            required property int index
            readonly property SmallCardGrid grid: parent as SmallCardGrid

            label: grid?.labels[index] ?? ""
            value: grid?.values[index] ?? ""
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
    }
}
