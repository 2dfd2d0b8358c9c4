import QtQuick
import QtQuick.Layouts
import Vellomar

// The folders whose files are written to, each with its whole path, and a way to name another one instead.
ColumnLayout {
    id: root

    required property DateCorrection model

    spacing: 8

    CapitalLabel {
        text: qsTr("TARGET FOLDER")
    }
    BodyText {
        text: qsTr("There is no source folder. Enter the path of a folder, or drop one here.")
        colour: Theme.tertiaryText
        visible: root.model.folders.length === 0
        Layout.fillWidth: true
    }
    Repeater {
        model: root.model.folders

        RowLayout {
            id: row

            required property var modelData

            spacing: 8
            Layout.fillWidth: true

            Symbol {
                name: "folder.fill"
                colour: Theme.yellow
                size: 12
                Layout.alignment: Qt.AlignTop
                Layout.topMargin: 1
            }
            ColumnLayout {
                spacing: 2
                Layout.fillWidth: true

                BodyText {
                    objectName: "targetFolder"
                    text: row.modelData.path
                    wrapMode: Text.WrapAnywhere
                    colour: Theme.text
                    Layout.fillWidth: true
                }
                BodyText {
                    text: row.modelData.problem
                    size: 10
                    colour: Theme.alertRed
                    visible: text !== ""
                    Accessible.role: Accessible.AlertMessage
                    Layout.fillWidth: true
                }
            }
        }
    }
    ActionButton {
        text: root.model.moreText
        visible: text !== ""
        capitals: false
        implicitHeight: 24
        leftPadding: 4
        rightPadding: 4
        tracking: 0.5
        colour: hovered ? Theme.text : Theme.bodyText
        onClicked: {
            // It goes with the click.
            pathField.forceActiveFocus(Qt.OtherFocusReason);
            root.model.showAllFolders();
        }
    }
    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        InputField {
            id: pathField
            text: root.model.customPath
            placeholderText: qsTr("Or enter a different path…")
            onTextEdited: root.model.typePath(text)
            Layout.fillWidth: true
        }
        SecondaryButton {
            text: qsTr("Browse")
            capitals: false
            onClicked: root.model.pickFolder()
        }
    }
    BodyText {
        objectName: "pathProblem"
        text: root.model.pathProblem
        colour: Theme.alertRed
        visible: text !== ""
        Accessible.role: Accessible.AlertMessage
        Layout.fillWidth: true
    }
}
