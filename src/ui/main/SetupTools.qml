import QtQuick
import Vellomar

// The tools that set a run up, side by side on as many lines as they need.
Flow {
    id: tools

    required property ContentViewModel content

    spacing: 8

    ToolRowButton {
        text: qsTr("PRESETS")
        symbol: "square.and.arrow.down"
        onClicked: tools.content.presets.open()
    }
    ToolRowButton {
        text: tools.content.rules.active > 0 ? qsTr("RENAME RULES (%1)").arg(tools.content.rules.active)
            : qsTr("RENAME RULES")
        symbol: "pencil"
        onClicked: tools.content.rules.open()
    }
    ToolRowButton {
        text: qsTr("SETUP WIZARD")
        symbol: "wand.and.stars"
        onClicked: tools.content.firstRun.openWizard()
    }
    ToolRowButton {
        text: qsTr("DATE CORRECTION")
        symbol: "clock.badge.checkmark"
        onClicked: tools.content.dates.open()
    }
}
