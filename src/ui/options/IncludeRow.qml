import QtQuick
import Vellomar

// Which kinds of file a run takes along.
PillRow {
    id: row

    required property OptionsPanelModel options

    label: qsTr("Include")
    tooltip: qsTr("Choose which file types to include in the sort.")

    Pill {
        text: qsTr("IMG")
        isChosen: row.options.includesImages
        onClicked: row.options.toggleImages()
    }
    Pill {
        text: qsTr("VID")
        isChosen: row.options.includesVideos
        onClicked: row.options.toggleVideos()
    }
    Pill {
        text: qsTr("OTHER")
        isChosen: row.options.includesOther
        onClicked: row.options.toggleOther()
    }
}
