import QtQuick
import QtQuick.Layouts
import Vellomar

// By how much dates are shifted: days, hours, and what they come to.
ColumnLayout {
    id: root

    required property DateCorrection model

    spacing: 8

    CapitalLabel {
        text: qsTr("DATE SHIFT")
    }
    RowLayout {
        spacing: 20
        Layout.fillWidth: true

        ShiftStepper {
            label: qsTr("DAYS")
            lessName: qsTr("One day less")
            moreName: qsTr("One day more")
            value: root.model.days
            onMoved: value => root.model.days = value
        }
        ShiftStepper {
            label: qsTr("HOURS")
            lessName: qsTr("One hour less")
            moreName: qsTr("One hour more")
            value: root.model.hours
            onMoved: value => root.model.hours = value
        }
        ColumnLayout {
            spacing: 4
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop

            CapitalLabel {
                text: qsTr("TOTAL SHIFT")
                size: 9
            }
            BodyText {
                objectName: "totalShift"
                text: root.model.totalShift
                size: 13
                colour: Theme.yellow
                font.bold: true
                verticalAlignment: Text.AlignVCenter
                Layout.fillWidth: true
                Layout.minimumHeight: 32
            }
        }
    }
}
