import QtQuick
import QtQuick.Layouts
import Vellomar

// Two lines at the left of a sheet's footer.
ColumnLayout {
    property alias first: firstLine.text
    property alias second: secondLine.text

    spacing: 2
    Layout.fillWidth: true

    BodyText {
        id: firstLine
        size: 10
        Layout.fillWidth: true
    }

    BodyText {
        id: secondLine
        size: 10
        colour: Theme.tertiaryText
        visible: text !== ""
        Layout.fillWidth: true
    }
}
