import QtQuick
import QtQuick.Layouts
import Vellomar

// How far the shift is, and then what it came to.
ColumnLayout {
    id: root

    required property DateCorrection model

    spacing: 8
    visible: root.model.isRunning || root.model.isDone

    ProgressTrack {
        value: root.model.progress
        text: qsTr("Processing…")
        visible: root.model.isRunning
        Layout.fillWidth: true
    }
    BodyText {
        text: qsTr("Processing…")
        colour: Theme.text
        visible: root.model.isRunning
        Layout.fillWidth: true
    }
    RowLayout {
        spacing: 8
        visible: root.model.statusText !== ""
        Layout.fillWidth: true

        Symbol {
            objectName: "doneSymbol"
            name: "checkmark.circle.fill"
            colour: Theme.success
            size: 14
            visible: root.model.isDone
        }
        BodyText {
            objectName: "shiftStatus"
            text: root.model.statusText
            colour: root.model.isDone ? Theme.text : Theme.bodyText
            wrapMode: root.model.isDone ? Text.Wrap : Text.NoWrap
            elide: root.model.isDone ? Text.ElideNone : Text.ElideMiddle
            Layout.fillWidth: true
        }
    }
    BodyText {
        text: qsTr("It goes on when this sheet is closed.")
        size: 10
        colour: Theme.tertiaryText
        visible: root.model.isRunning
        Layout.fillWidth: true
    }
}
