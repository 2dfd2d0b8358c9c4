import QtQuick
import QtQuick.Layouts
import Vellomar

// From where to where a file goes.
Rectangle {
    id: strip

    required property Inspector model

    implicitHeight: grid.implicitHeight + 20
    color: Theme.inset

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    GridLayout {
        id: grid
        anchors.verticalCenter: parent.verticalCenter
        x: 24
        width: parent.width - 48
        columns: 2
        columnSpacing: 8
        rowSpacing: 4

        CapitalLabel {
            text: qsTr("FROM")
            size: 9
            Layout.preferredWidth: 36
            Layout.alignment: Qt.AlignTop
        }
        SelectableText {
            objectName: "fromPath"
            text: strip.model.source
            size: 10
            colour: Theme.secondaryText
            wrapMode: TextEdit.WrapAnywhere
            Layout.fillWidth: true
        }
        CapitalLabel {
            text: qsTr("TO")
            size: 9
            colour: Theme.yellow
            Layout.preferredWidth: 36
            Layout.alignment: Qt.AlignTop
        }
        SelectableText {
            objectName: "toPath"
            text: strip.model.destination
            size: 10
            wrapMode: TextEdit.WrapAnywhere
            Layout.fillWidth: true
        }
    }
}
