import QtQuick
import Vellomar

// The cards side by side where they have room, else two above three.
Item {
    id: row

    property var labels: []
    property var values: []
    readonly property bool isNarrow: width < 640
    readonly property int spacing: 8

    implicitHeight: childrenRect.height

    Repeater {
        model: row.labels.length

        StatCard {
            required property int index
            readonly property StatCardRow row: parent as StatCardRow
            readonly property bool isNarrow: row?.isNarrow ?? false
            readonly property bool isBelow: isNarrow && index > 1
            readonly property int inLine: isNarrow ? (isBelow ? 3 : 2) : 5
            readonly property int place: isBelow ? index - 2 : index
            readonly property int gap: row?.spacing ?? 0

            width: ((row?.width ?? 0) - (inLine - 1) * gap) / inLine
            height: 76
            x: place * (width + gap)
            y: isBelow ? height + gap : 0
            label: row?.labels[index] ?? ""
            value: row?.values[index] ?? ""
            accent: index === 0
        }
    }
}
