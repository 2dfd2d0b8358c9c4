import QtQuick
import QtQuick.Layouts
import Vellomar

// One of the two folders of a watch.
RowLayout {
    id: row

    required property string name
    required property string path

    spacing: 12
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ": " + value.text

    BodyText {
        text: row.name
        colour: Theme.secondaryText
        Accessible.ignored: true
        Layout.preferredWidth: 90
    }
    BodyText {
        id: value
        objectName: "watchedPath"
        text: row.path === "" ? qsTr("Not set") : row.path
        colour: row.path === "" ? Theme.tertiaryText : Theme.text
        elide: Text.ElideMiddle
        wrapMode: Text.NoWrap
        Accessible.ignored: true
        Layout.fillWidth: true
    }
}
