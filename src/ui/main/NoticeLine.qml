import QtQuick
import QtQuick.Layouts
import Vellomar

// One thing that is amiss, and a way to put it away.
Rectangle {
    id: line

    required property int index
    required property string text

    signal dismissed

    implicitHeight: row.implicitHeight + 12
    color: Theme.errorBar

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
            name: "exclamationmark.triangle.fill"
            colour: Theme.alertRed
            size: 12
        }
        BodyText {
            text: line.text
            colour: Theme.alertRed
            Accessible.role: Accessible.AlertMessage
            Layout.fillWidth: true
        }
        CloseButton {
            onClicked: line.dismissed()
        }
    }
}
