import QtQuick
import QtQuick.Layouts
import Vellomar

// That a run will delete the originals.
Rectangle {
    implicitHeight: row.implicitHeight + 24
    color: Qt.alpha(Theme.alertOrange, 0.08)
    radius: 4
    border.width: 1
    border.color: Theme.alertOrange
    Accessible.role: Accessible.AlertMessage
    Accessible.name: heading.text
    Accessible.description: explanation.text

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
                id: heading
                text: qsTr("MOVE MODE IS ACTIVE")
                size: 11
                colour: Theme.alertOrange
                font.bold: true
            }

            BodyText {
                id: explanation
                text: qsTr("Source files will be deleted after copying. Run a Dry Run first to review the file plan before proceeding.")
                colour: Theme.warningText
                Layout.fillWidth: true
            }
        }
    }
}
