import QtQuick
import QtQuick.Layouts
import Vellomar

// One setting: its name, and how it stands.
RowLayout {
    id: line

    required property var modelData

    spacing: 8
    Accessible.role: Accessible.StaticText
    Accessible.name: modelData.key + ": " + modelData.value

    BodyText {
        text: line.modelData.key
        size: 10
        colour: Theme.secondaryText
        Accessible.ignored: true
        Layout.fillWidth: true
    }
    BodyText {
        objectName: "configValue"
        text: line.modelData.value
        size: 10
        colour: line.modelData.colour
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }
}
