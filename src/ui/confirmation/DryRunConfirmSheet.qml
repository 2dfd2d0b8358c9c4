import QtQuick
import QtQuick.Layouts
import Vellomar

// What a dry run does, before it is started.
Sheet {
    id: root

    required property ConfirmationModel model

    signal runRequested
    signal dismissed

    symbol: "eye.fill"
    title: qsTr("DRY RUN")
    subtitle: model.subtitle
    minimumWidth: 640
    bodySpacing: 24
    initialFocus: cancelButton
    onConfirmed: runRequested()
    onCancelled: dismissed()

    RunPromises {
        heading: qsTr("WHAT IT DOES")
        rows: root.model.promises
        Layout.fillWidth: true
    }

    CurrentSettings {
        rows: root.model.settings
        Layout.fillWidth: true
    }

    footer: [
        FooterNote {
            first: qsTr("Ready to preview your library sort.")
            second: qsTr("Check the File Plan Preview after it finishes.")
        },
        SecondaryButton {
            id: cancelButton
            text: qsTr("CANCEL")
            onClicked: root.dismissed()
        },
        PrimaryButton {
            symbol: "eye.fill"
            text: qsTr("RUN DRY RUN")
            onClicked: root.runRequested()
        }
    ]
}
