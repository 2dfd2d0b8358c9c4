import QtQuick
import Vellomar

// The tools side by side, on as many lines as they need.
Flow {
    id: tools

    required property ContentViewModel content

    spacing: 8

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
        text: qsTr("UNDO")
        symbol: "arrow.uturn.backward"
        enabled: tools.content.undo.canOpen
        onClicked: tools.content.undo.open()
    }
}
