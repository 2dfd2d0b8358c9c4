import QtQuick
import Vellomar

// The naming styles side by side, on as many lines as they need.
Flow {
    id: tabs

    required property NamingChoice naming

    spacing: 4

    Repeater {
        model: tabs.naming.labels

        NamingStyleTab {
            required property int index
            required property string modelData

            text: modelData
            isChosen: (parent as NamingTabs)?.naming.chosen === index
            onClicked: (parent as NamingTabs).naming.choose(index)
        }
    }
}
