import QtQuick
import QtQuick.Layouts
import Vellomar

// Options under names: to be saved as they are now, and loaded again.
Sheet {
    id: root

    required property PresetsModel model

    title: qsTr("PRESETS")
    subtitle: qsTr("Save and restore full option configurations.")
    minimumWidth: 480
    minimumHeight: 400
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    initialFocus: nameField
    onAboutToShow: nameField.clear()
    onConfirmed: save()
    onCancelled: model.dismiss()

    function save() {
        if (!model.savePreset(nameField.text))
            return;
        nameField.clear();
        list.showEnd();
    }

    SheetStrip {
        Layout.fillWidth: true

        InputField {
            id: nameField
            placeholderText: qsTr("Preset name (e.g. iPhone backup)")
            Layout.fillWidth: true
        }
        PrimaryButton {
            text: qsTr("SAVE CURRENT")
            onClicked: root.save()
        }
    }
    NotedList {
        id: list
        model: root.model
        note: qsTr("No presets saved yet.")
        name: root.title
        refuge: nameField
        Layout.fillWidth: true
        Layout.fillHeight: true

        delegate: PresetRow {
            width: ListView.view.width
            onLoaded: (ListView.view.model as PresetsModel).applyPreset(index)
            onDeleted: (ListView.view.model as PresetsModel).deletePreset(index)
        }
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        SecondaryButton {
            text: qsTr("CLOSE")
            onClicked: root.cancelled()
        }
    ]
}
