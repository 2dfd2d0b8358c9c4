import QtQuick
import QtQuick.Layouts
import Vellomar

// The title of some options, and a hairline.
RowLayout {
    id: root

    property string text

    spacing: 8

    CapitalLabel {
        text: root.text
        size: 9
        colour: Theme.tertiaryText
    }
    Rectangle {
        implicitHeight: 1
        color: Theme.hairline
        Layout.fillWidth: true
    }
}
