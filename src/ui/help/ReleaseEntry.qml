import QtQuick
import Vellomar

// One release: which and when, and its changes by category.
Item {
    id: entry

    required property string version
    required property string date
    required property bool isCurrent
    required property var changes  // maps of "category" and "items"

    objectName: "release"
    height: column.implicitHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: heading.text

    Column {
        id: column
        x: 24
        width: entry.width - 48
        topPadding: 18
        bottomPadding: 18
        spacing: 10

        Row {
            spacing: 10

            BodyText {
                id: heading
                objectName: "releaseVersion"
                anchors.verticalCenter: parent.verticalCenter
                text: "v" + entry.version
                size: 14
                colour: entry.isCurrent ? Theme.yellow : Theme.text
                font.bold: true
                wrapMode: Text.NoWrap
                Accessible.role: Accessible.Heading
            }
            Rectangle {
                objectName: "currentBadge"
                anchors.verticalCenter: parent.verticalCenter
                visible: entry.isCurrent
                width: badge.implicitWidth + 12
                height: 16
                radius: 3
                color: Theme.yellow

                CapitalLabel {
                    id: badge
                    anchors.centerIn: parent
                    text: qsTr("CURRENT")
                    size: 8
                    tracking: 1
                    colour: Theme.windowBackground
                    font.bold: true
                }
            }
            BodyText {
                objectName: "releaseDate"
                anchors.verticalCenter: parent.verticalCenter
                text: entry.date
                size: 10
                colour: Theme.secondaryText
                wrapMode: Text.NoWrap
            }
        }
        Repeater {
            model: entry.changes

            Column {
                id: group

                required property var modelData  // "category", "items"

                width: parent?.width ?? 0
                spacing: 5

                CapitalLabel {
                    objectName: "changeCategory"
                    text: group.modelData.category
                    size: 9
                    colour: Theme.secondaryText
                    bottomPadding: 2
                }
                Repeater {
                    model: group.modelData.items

                    BulletText {
                        required property string modelData

                        text: modelData
                        colour: Theme.text
                    }
                }
            }
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
