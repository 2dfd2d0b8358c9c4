import QtQuick
import QtQuick.Layouts
import Vellomar

// The stages of a run in a line: those that are behind, the one that is under way, and those to come.
RowLayout {
    id: pipeline

    property int stage: 0
    readonly property var names: [qsTr("SCAN"), qsTr("EXIF"), qsTr("PLAN"), qsTr("COPY"), qsTr("DONE")]

    spacing: 4
    Accessible.role: Accessible.StaticText
    Accessible.name: stage > 0 ? names[stage - 1] : ""

    Repeater {
        model: pipeline.names

        PipelineCell {
            required property int index
            required property string modelData

            number: index + 1
            name: modelData
            stage: (parent as Pipeline)?.stage ?? 0
            Layout.fillWidth: index > 0
        }
    }
}
