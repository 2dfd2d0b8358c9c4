import QtQuick
import QtQuick.Layouts
import Vellomar

// Where the picture was taken.
ColumnLayout {
    id: tab

    required property Inspector model

    component Coordinate: ColumnLayout {
        property alias label: label.text
        property alias value: value.text

        spacing: 4
        Layout.fillWidth: true
        Layout.preferredWidth: 1

        CapitalLabel {
            id: label
            size: 9
            colour: Theme.tertiaryText
        }
        SelectableText {
            id: value
            colour: Theme.bodyText
            Layout.fillWidth: true
        }
    }

    spacing: 12

    InspectorEmpty {
        model: tab.model
        symbol: "location.slash"
        text: qsTr("No GPS data found in this file.\n\nThis camera or device did not record location information.")
        visible: !tab.model.hasGps
        Layout.fillWidth: true
    }
    CapitalLabel {
        text: qsTr("LOCATION")
        size: 9
        visible: tab.model.hasGps
    }
    Rectangle {
        implicitHeight: place.implicitHeight + 28
        radius: 4
        color: Theme.inset
        visible: tab.model.hasGps
        Layout.fillWidth: true

        RowLayout {
            id: place
            anchors.verticalCenter: parent.verticalCenter
            x: 16
            width: parent.width - 32
            spacing: 10

            Symbol {
                name: "location.fill"
                colour: Theme.yellow
                size: 13
            }
            BodyText {
                objectName: "location"
                text: tab.model.location
                size: 12
                colour: Theme.text
                Layout.fillWidth: true
            }
        }
    }
    RowLayout {
        spacing: 16
        visible: tab.model.hasGps
        Layout.fillWidth: true

        Coordinate {
            objectName: "latitude"
            label: qsTr("LAT")
            value: tab.model.latitude
        }
        Coordinate {
            objectName: "longitude"
            label: qsTr("LON")
            value: tab.model.longitude
        }
    }
    Coordinate {
        objectName: "altitude"
        label: qsTr("ALT")
        value: tab.model.altitude
        visible: tab.model.hasGps && tab.model.altitude !== ""
    }
    PrimaryButton {
        text: qsTr("OPEN IN MAPS")
        symbol: "map"
        implicitHeight: implicitContentHeight + 14
        leftPadding: 14
        rightPadding: 14
        visible: tab.model.hasGps && tab.model.canOpenMaps
        onClicked: tab.model.openInMaps()
        Layout.topMargin: 4
    }
}
