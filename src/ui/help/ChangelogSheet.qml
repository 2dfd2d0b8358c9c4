import QtQuick
import QtQuick.Layouts
import Vellomar

// What came with each release, the newest first.
Sheet {
    id: root

    required property Changelog model

    title: qsTr("CHANGELOG")
    titleSize: 14
    titleColour: Theme.text
    subtitle: qsTr("History of changes across all versions.")
    subtitleColour: Theme.secondaryText
    minimumWidth: 480
    minimumHeight: 560
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: list
    initialFocus: closeButton
    onConfirmed: model.dismiss()
    onCancelled: model.dismiss()

    titleLead: Wordmark {
        size: 16
    }

    ScrollList {
        id: list
        model: root.model
        activeFocusOnTab: true
        Accessible.name: root.title
        Layout.fillWidth: true
        Layout.fillHeight: true
        Keys.onPressed: event => event.accepted = scrollBy(event.key)

        delegate: ReleaseEntry {
            width: ListView.view?.width ?? 0
        }

        FocusRing {
            parent: list
            gap: -1
            radius: 0
            border.width: 1
            shown: list.activeFocus
        }
    }

    footer: [
        BodyText {
            text: qsTr("Tap the version number in the header to open this window.")
            size: 10
            colour: Theme.faintText
            Layout.fillWidth: true
        },
        PrimaryButton {
            id: closeButton
            text: qsTr("CLOSE")
            onClicked: root.cancelled()
        }
    ]
}
