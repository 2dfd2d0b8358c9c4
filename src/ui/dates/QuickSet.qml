import QtQuick
import QtQuick.Layouts
import Vellomar

// Hours by which the clocks of cameras are often wrong.
ColumnLayout {
    id: root

    required property DateCorrection model

    spacing: 8

    CapitalLabel {
        text: qsTr("QUICK SET")
    }
    Flow {
        spacing: 4
        Layout.fillWidth: true

        Repeater {
            model: root.model.quickHours

            Pill {
                id: chip

                required property var modelData
                readonly property DateCorrection dates: (chip.parent?.parent as QuickSet)?.model ?? null

                text: modelData.label
                isChosen: dates?.hours === modelData.hours
                colour: isChosen ? Theme.yellow : Theme.secondaryText
                fill: isChosen ? Theme.windowBackground : "transparent"
                hoverFill: Theme.rowTint
                edge: isChosen ? Theme.yellow : Theme.edge
                onClicked: dates.hours = modelData.hours
            }
        }
    }
}
