import QtQuick
import Vellomar

// One folder of the wizard, and a way to take it out.
Rectangle {
    id: root

    required property string name
    required property string path
    required property bool isMissing
    property bool isChecked: false

    signal removed

    objectName: "wizardFolder"
    height: 44
    color: Theme.windowBackground
    radius: 4
    border.width: 1
    border.color: isMissing ? Theme.alertRed : Theme.hairline
    Accessible.role: Accessible.ListItem
    Accessible.name: isMissing ? qsTr("%1, not found").arg(path) : path

    Symbol {
        id: mark
        objectName: "wizardMark"
        anchors.verticalCenter: parent.verticalCenter
        x: 10
        name: root.isMissing ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
        colour: root.isMissing ? Theme.alertRed : Theme.success
        size: 14
        visible: root.isChecked || root.isMissing
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: mark.visible ? 34 : 12
        width: Math.max(0, removeButton.x - x - 8)
        spacing: 2

        BodyText {
            width: parent.width
            text: root.name
            colour: Theme.text
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
        BodyText {
            objectName: "wizardFolderPath"
            width: parent.width
            text: root.isMissing ? qsTr("Not found: %1").arg(root.path) : root.path
            size: 9
            colour: root.isMissing ? Theme.alertRed : Theme.secondaryText
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
    }
    SymbolButton {
        id: removeButton
        objectName: "wizardRemove"
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 10
        symbol: "xmark"
        symbolSize: 10
        name: qsTr("Remove %1").arg(root.name)
        onClicked: root.removed()
    }
}
