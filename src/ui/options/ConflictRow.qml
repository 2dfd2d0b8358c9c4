import QtQuick
import Vellomar

// What happens to a file whose place is taken.
PillRow {
    id: row

    required property OptionsPanelModel options

    label: qsTr("Conflict")
    tooltip: qsTr("What happens when a file already exists at the destination.\n\n"
        + "Rename: adds a number suffix (safest).\nSkip: leaves the existing file.\n"
        + "Overwrite: replaces it (destructive).")

    Repeater {
        model: row.options.conflictLabels

        Pill {
            id: pill

            required property int index
            required property string modelData
            readonly property ConflictRow row: parent?.parent as ConflictRow

            text: modelData
            isChosen: pill.row?.options.conflict === index
            isDangerous: index === 2
            onClicked: pill.row.options.chooseConflict(index)
        }
    }
}
