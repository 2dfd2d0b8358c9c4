import QtQuick
import QtQuick.Layouts
import Vellomar

// Pills below what they are about, with a help dot; on as many lines as they need.
ColumnLayout {
    id: root

    property string label
    property string tooltip
    default property alias pills: flow.data

    spacing: 4

    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        BodyText {
            text: root.label
            colour: Theme.text
            Layout.fillWidth: true
        }
        HelpDot {
            tooltip: root.tooltip
            tooltipColour: Theme.text
        }
    }
    Flow {
        id: flow
        spacing: 4
        Layout.fillWidth: true
    }
}
