import QtQuick
import QtQuick.Layouts
import Vellomar

// One thing that is amiss, or some news, and a way to put it away.
Rectangle {
    id: line

    required property int index
    required property string text
    required property bool isNews
    readonly property color colour: isNews ? Theme.text : Theme.alertRed

    signal dismissed

    implicitHeight: row.implicitHeight + 12
    color: isNews ? Theme.yellowTint : Theme.errorBar

    RowLayout {
        id: row
        anchors {
            left: parent.left
            right: parent.right
            verticalCenter: parent.verticalCenter
            leftMargin: 20
            rightMargin: 12
        }
        spacing: 8

        Symbol {
            name: line.isNews ? "info.circle" : "exclamationmark.triangle.fill"
            colour: line.isNews ? Theme.yellow : Theme.alertRed
            size: 12
        }
        BodyText {
            text: line.text
            colour: line.colour
            Accessible.role: Accessible.AlertMessage
            Layout.fillWidth: true
        }
        CloseButton {
            onClicked: line.dismissed()
        }
    }
}
