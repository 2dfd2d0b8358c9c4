import QtQuick
import QtQuick.Layouts
import Vellomar

// What the camera recorded.
ColumnLayout {
    id: tab

    required property Inspector model
    readonly property bool hasRows: rows.count > 0

    spacing: 0

    InspectorEmpty {
        model: tab.model
        symbol: "camera"
        text: qsTr("No camera metadata found in this file.")
        visible: !tab.hasRows
        Layout.fillWidth: true
    }
    CapitalLabel {
        text: qsTr("CAMERA & SETTINGS")
        size: 9
        visible: tab.hasRows
        Layout.bottomMargin: 10
    }
    Repeater {
        id: rows
        model: tab.model.cameraRows

        Rectangle {
            id: row

            required property int index
            required property var modelData

            implicitHeight: value.implicitHeight + 16
            color: index % 2 === 0 ? Theme.inset : Theme.sidePanel
            Layout.fillWidth: true
            Accessible.role: Accessible.ListItem
            Accessible.name: `${modelData.label}: ${modelData.value}`

            CapitalLabel {
                objectName: "cameraLabel"
                x: 12
                y: 8
                width: 150 - 12
                text: row.modelData.label
                size: 9
                tracking: 1
                Accessible.ignored: true
            }
            Rectangle {
                x: 150
                width: 1
                height: parent.height
                color: Theme.hairline
            }
            SelectableText {
                id: value
                objectName: "cameraValue"
                x: 163
                y: 8
                width: parent.width - 175
                text: row.modelData.value
                Accessible.ignored: true
            }
        }
    }
}
