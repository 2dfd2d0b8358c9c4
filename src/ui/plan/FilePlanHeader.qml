import QtQuick
import QtQuick.Layouts
import Vellomar

// The titles of the columns in the plan's own window.
Rectangle {
    component Title: CapitalLabel {
        size: 8
        tracking: 1
        colour: Theme.tertiaryText
        leftPadding: 8
    }

    implicitHeight: 28
    color: Theme.sidePanel

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Item {
            implicitWidth: 80
            Layout.minimumWidth: 80
        }
        Title {
            text: qsTr("SOURCE")
            Layout.minimumWidth: 180
            Layout.maximumWidth: 180
        }
        Title {
            text: qsTr("DESTINATION")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        Title {
            text: qsTr("CAMERA")
            Layout.minimumWidth: 260
            Layout.maximumWidth: 260
        }
        Title {
            text: qsTr("ACTION")
            leftPadding: 0
            Layout.minimumWidth: 90
            Layout.maximumWidth: 90
        }
        Title {
            text: qsTr("DATE RESOLVED")
            Layout.minimumWidth: 145
            Layout.maximumWidth: 145
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
