import QtQuick
import QtQuick.Layouts
import Vellomar

// That a file could not be imported, until it is dismissed.
Rectangle {
    id: root

    property string message

    signal dismissed

    implicitHeight: row.implicitHeight + 16
    color: Theme.errorBar
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 16
        spacing: 10

        Symbol {
            name: "exclamationmark.triangle.fill"
            colour: Theme.alertRed
            size: 12
        }

        BodyText {
            objectName: "importError"
            text: root.message
            colour: Theme.alertRed
            Layout.fillWidth: true
        }

        CloseButton {
            objectName: "dismissError"
            onClicked: root.dismissed()
        }
    }
}
