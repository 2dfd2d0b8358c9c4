import QtQuick
import QtQuick.Layouts
import Vellomar

// What the watch did, the newest line first.
ColumnLayout {
    id: root

    required property var lines  // texts

    spacing: 6

    CapitalLabel {
        text: qsTr("ACTIVITY")
        font.bold: true
    }
    Repeater {
        model: root.lines

        BodyText {
            required property string modelData

            objectName: "watchLine"
            text: modelData
            size: 10
            colour: Theme.secondaryText
            Layout.fillWidth: true
        }
    }
}
