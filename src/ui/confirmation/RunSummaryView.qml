import QtQuick
import QtQuick.Layouts
import Vellomar

// What a real run will do, before it is started.
Sheet {
    id: root

    required property ConfirmationModel model

    signal switchedToDryRun

    symbol: "play.fill"
    title: qsTr("NORMAL RUN")
    subtitle: model.subtitle
    minimumWidth: 760
    bodySpacing: 24
    initialFocus: cancelButton

    RunPromises {
        heading: qsTr("WHAT WILL HAPPEN")
        rows: root.model.promises
        Layout.fillWidth: true
    }

    MoveWarning {
        objectName: "moveWarning"
        visible: root.model.warnsOfMove
        Layout.fillWidth: true
    }

    CurrentSettings {
        rows: root.model.settings
        Layout.fillWidth: true
    }

    footer: [
        FooterNote {
            first: qsTr("Not sure? Switch to Dry Run first.")
            second: qsTr("Dry Run previews every action without touching files.")
        },
        SecondaryButton {
            id: cancelButton
            text: qsTr("CANCEL")
            onClicked: root.cancelled()
        },
        SecondaryButton {
            symbol: "eye.fill"
            text: qsTr("SWITCH TO DRY RUN")
            accent: true
            onClicked: root.switchedToDryRun()
        },
        PrimaryButton {
            symbol: "play.fill"
            text: qsTr("RUN NOW")
            onClicked: root.confirmed()
        }
    ]
}
