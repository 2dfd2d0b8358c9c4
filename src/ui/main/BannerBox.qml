import QtQuick
import QtQuick.Layouts
import Vellomar

// One thing worth knowing about this run.
Rectangle {
    id: banner
    objectName: "banner"

    property string symbol
    property color colour: Theme.text
    property string text

    implicitHeight: row.implicitHeight + 14
    radius: 3
    color: Qt.alpha(colour, 0.08)
    border.width: 1
    border.color: Qt.alpha(colour, 0.25)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    RowLayout {
        id: row
        anchors {
            left: parent.left
            right: parent.right
            verticalCenter: parent.verticalCenter
            leftMargin: 12
            rightMargin: 12
        }
        spacing: 8

        Symbol {
            name: banner.symbol
            colour: banner.colour
            size: 11
            visible: name !== ""
        }
        BodyText {
            text: banner.text
            colour: banner.colour
            size: 11
            Accessible.ignored: true
            Layout.fillWidth: true
        }
    }
}
