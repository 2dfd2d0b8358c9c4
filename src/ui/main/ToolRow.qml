import QtQuick
import Vellomar

// The tools side by side, on as many lines as they need.
Flow {
    id: tools

    required property ContentViewModel content

    spacing: 8

    ToolRowButton {
        text: tools.content.duplicates.total > 0 ? qsTr("DUPES (%1)").arg(tools.content.duplicates.total) : qsTr("DUPES")
        symbol: "doc.on.doc"
        enabled: tools.content.duplicates.canOpen
        onClicked: tools.content.duplicates.open()
    }
    ToolRowButton {
        text: qsTr("STATS")
        symbol: "chart.bar"
        enabled: tools.content.statistics.canOpen
        onClicked: tools.content.statistics.open()
    }
    ToolRowButton {
        text: qsTr("ESTIMATE")
        symbol: "ruler"
        enabled: tools.content.run.canEstimate
        onClicked: tools.content.run.makeEstimate()
    }
    ToolRowButton {
        text: qsTr("CSV")
        symbol: "arrow.down.doc"
        onClicked: tools.content.exports.exportPlan()
    }
    ToolRowButton {
        // The undo files of many large runs take a moment to read.
        text: tools.content.undo.isLoading ? qsTr("READING…") : qsTr("UNDO")
        symbol: "arrow.uturn.backward"
        enabled: tools.content.undo.canOpen
        onClicked: tools.content.undo.open()
    }
    ToolRowButton {
        text: qsTr("WATCH")
        symbol: "eye.fill"
        accentColour: tools.content.watch.isWatching ? Theme.yellow : Theme.bodyText
        Accessible.description: tools.content.watch.isWatching ? qsTr("ACTIVE") : ""
        onClicked: tools.content.watch.open()
    }
}
