import QtQuick
import Vellomar

// Takes files and folders that are dropped on what lies in it, and says so while they hover.
Item {
    id: root

    property string text
    default property alias content: holder.data

    signal addressesDropped(addresses: var)

    implicitHeight: holder.childrenRect.height

    Item {
        id: holder
        width: root.width
        height: childrenRect.height
    }
    DropArea {
        id: area
        objectName: "folderDrop"
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: drop => {
            drop.accept(Qt.CopyAction);
            root.addressesDropped(drop.urls);
        }
    }
    Rectangle {
        anchors.fill: parent
        visible: area.containsDrag
        radius: 4
        color: Qt.alpha(Theme.yellowTint, 0.92)
        border.width: 1
        border.color: Theme.yellow

        CapitalLabel {
            anchors.centerIn: parent
            text: root.text
            colour: Theme.yellow
        }
    }
}
