import QtQuick
import QtQuick.Layouts
import Vellomar

// Something to think of before one goes on: in a word, and why.
Rectangle {
    id: root

    required property string heading
    required property string explanation

    implicitHeight: row.implicitHeight + 24
    color: Qt.alpha(Theme.alertOrange, 0.08)
    radius: 4
    border.width: 1
    border.color: Theme.alertOrange
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.heading
    Accessible.description: root.explanation

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.margins: 12
        spacing: 12

        Symbol {
            name: "exclamationmark.triangle.fill"
            colour: Theme.alertOrange
            size: 16
            Layout.alignment: Qt.AlignTop
        }

        ColumnLayout {
            spacing: 4

            CapitalLabel {
                text: root.heading
                size: 11
                colour: Theme.alertOrange
                font.bold: true
            }

            BodyText {
                text: root.explanation
                colour: Theme.warningText
                Layout.fillWidth: true
            }
        }
    }
}
