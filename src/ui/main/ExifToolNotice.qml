import QtQuick
import QtQuick.Layouts
import Vellomar

// Without ExifTool a run works, but knows less.
Rectangle {
    implicitHeight: column.implicitHeight + 16
    radius: 4
    color: Qt.alpha(Theme.alertOrange, 0.08)
    border.width: 1
    border.color: Qt.alpha(Theme.alertOrange, 0.25)

    ColumnLayout {
        id: column
        anchors {
            left: parent.left
            right: parent.right
            verticalCenter: parent.verticalCenter
            margins: 8
        }
        spacing: 4

        CapitalLabel {
            text: qsTr("ExifTool not found")
            size: 9
            tracking: 1
            colour: Theme.alertOrange
            Layout.fillWidth: true
        }
        BodyText {
            text: qsTr("Dates of some formats, and the removal of metadata, need it. Install the package "
                + "libimage-exiftool-perl (Debian, Ubuntu), perl-Image-ExifTool (Fedora) or perl-image-exiftool (Arch), "
                + "then start Vellomar again.")
            size: 10
            colour: Theme.warningText
            Layout.fillWidth: true
        }
    }
}
