import QtQuick
import QtQuick.Layouts
import Vellomar

// Rules by which folders get better names.
Sheet {
    id: root

    required property RenameRulesModel model

    title: qsTr("RENAME RULES")
    subtitle: qsTr("Folder names containing the match text will be renamed to the replacement.")
    minimumWidth: 580  // for the placeholders
    minimumHeight: 360
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    initialFocus: matchField
    onAboutToShow: clear()
    onConfirmed: add()
    onCancelled: model.dismiss()

    function add() {
        if (!model.addRule(matchField.text, replacementField.text))
            return;
        clear();
        matchField.forceActiveFocus(Qt.OtherFocusReason);
        list.showEnd();
    }

    function clear() {
        matchField.clear();
        replacementField.clear();
    }

    SheetStrip {
        Layout.fillWidth: true

        InputField {
            id: matchField
            placeholderText: qsTr("Match text (e.g. Vacation)")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        Symbol {
            name: "arrow.right"
            size: 10
            colour: Theme.tertiaryText
        }
        InputField {
            id: replacementField
            placeholderText: qsTr("Replacement (e.g. Vacaciones)")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        PrimaryButton {
            text: qsTr("ADD")
            enabled: matchField.text !== "" && replacementField.text !== ""
            onClicked: root.add()
        }
    }
    NotedList {
        id: list
        model: root.model
        note: qsTr("No rules yet. Add one above.")
        name: root.title
        refuge: matchField
        Layout.fillWidth: true
        Layout.fillHeight: true

        delegate: RenameRuleRow {
            width: ListView.view.width
            onToggled: isOn => (ListView.view.model as RenameRulesModel).setEnabled(index, isOn)
            onDeleted: (ListView.view.model as RenameRulesModel).deleteRule(index)
        }
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        SecondaryButton {
            text: qsTr("DONE")
            onClicked: root.cancelled()
        }
    ]
}
