import QtQuick
import Vellomar

// What is said at one stop of the tour, in a box with an arrow.
FocusScope {
    id: root

    required property TourModel tour
    required property var place  // a CalloutPlace
    readonly property point arrowBase: Qt.point(place.arrowBase.x - x, place.arrowBase.y - y)
    readonly property alias forwardButton: forward

    objectName: "tourCallout"
    x: place.box.x
    y: place.box.y
    width: 300
    height: column.height + 32
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: tour.title
    Accessible.description: tour.description

    // The arrow is the corner of a square that lies half below the box. A smaller one takes the box's edge away from it.
    component ArrowPart: Rectangle {
        required property point base

        x: base.x - width / 2
        y: base.y - height / 2
        height: width
        rotation: 45
    }

    // The scrim is not meant.
    MouseArea {
        anchors.fill: parent
    }
    ArrowPart {
        objectName: "tourArrow"
        base: root.arrowBase
        width: 14
        color: Theme.yellow
    }
    Rectangle {
        objectName: "tourBox"
        anchors.fill: parent
        color: Theme.sidePanel
        radius: 6
        border.width: 1
        border.color: Theme.yellow
    }
    ArrowPart {
        base: root.arrowBase
        width: 12
        color: Theme.sidePanel
    }
    Column {
        id: column
        x: 16
        y: 16
        width: parent.width - 32
        spacing: 10

        Item {
            width: parent.width
            height: Math.max(18, title.implicitHeight)

            Symbol {
                objectName: "tourIcon"
                anchors.verticalCenter: parent.verticalCenter
                name: root.tour.icon
                colour: Theme.text
                size: 14
            }
            BodyText {
                id: title
                objectName: "tourTitle"
                anchors.verticalCenter: parent.verticalCenter
                x: 26
                width: Math.max(0, parent.width - x)
                text: root.tour.title
                size: 13
                colour: Theme.text
                font.bold: true
                Accessible.role: Accessible.Heading
            }
        }
        BodyText {
            objectName: "tourDescription"
            width: parent.width
            text: root.tour.description
            size: 10
        }
        Item {
            width: parent.width
            height: forward.height

            BodyText {
                objectName: "tourPosition"
                anchors.verticalCenter: parent.verticalCenter
                text: root.tour.positionText
                size: 10
                colour: Theme.dimmerTertiaryText
                wrapMode: Text.NoWrap
            }
            Row {
                anchors.right: parent.right
                spacing: 8

                BackButton {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: root.tour.canGoBack
                    refuge: forward
                    onClicked: root.tour.goBack()
                }
                PrimaryButton {
                    id: forward
                    objectName: "tourForward"
                    text: root.tour.forwardText
                    capitals: false
                    implicitHeight: 28
                    focus: true
                    // What has the focus is read out again when this changes, and so is each stop.
                    Accessible.description: root.tour.spokenText
                    onClicked: root.tour.goForward()
                }
            }
        }
    }
}
