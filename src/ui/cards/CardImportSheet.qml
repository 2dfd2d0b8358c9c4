import QtQuick
import QtQuick.Layouts
import Vellomar

// A camera card that was just plugged in.
Sheet {
    id: root

    required property CardImport model

    symbol: "sdcard.fill"
    title: qsTr("CAMERA CARD DETECTED")
    titleSize: 16
    subtitle: qsTr("A camera card was mounted. Add its DCIM folder as a source?")
    minimumWidth: 440
    minimumHeight: 260
    // It opens by itself, maybe while somebody types.
    canConfirm: false
    initialFocus: ignoreButton
    onCancelled: model.ignore()

    component Place: RowLayout {
        property string symbol
        property string text
        property bool isName: false

        spacing: 10
        Layout.fillWidth: true

        Symbol {
            name: parent.symbol
            colour: parent.isName ? Theme.yellow : Theme.secondaryText
            size: parent.isName ? 18 : 12
            Layout.preferredWidth: 18
        }
        BodyText {
            objectName: "cardPlace"
            text: parent.text
            size: parent.isName ? 13 : 10
            colour: parent.isName ? Theme.text : Theme.bodyText
            font.bold: parent.isName
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            Layout.fillWidth: true
        }
    }

    Place {
        symbol: "externaldrive.fill"
        text: root.model.volumeName
        isName: true
    }
    Place {
        symbol: "folder.fill"
        text: root.model.selectedPath
    }
    Flow {
        spacing: 8
        Layout.topMargin: 4
        Layout.fillWidth: true

        Pill {
            text: qsTr("Use DCIM folder")
            isChosen: !root.model.isRootSelected
            onClicked: root.model.selectCameraFolder()
        }
        Pill {
            text: qsTr("Use card root")
            isChosen: root.model.isRootSelected
            onClicked: root.model.selectRoot()
        }
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        SecondaryButton {
            id: ignoreButton
            text: qsTr("IGNORE")
            onClicked: root.cancelled()
        },
        PrimaryButton {
            text: qsTr("ADD AS SOURCE")
            symbol: "plus.circle.fill"
            onClicked: root.model.addAsSource()
        }
    ]
}
