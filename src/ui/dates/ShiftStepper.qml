import QtQuick
import QtQuick.Layouts
import Vellomar

// A whole number: to be typed, or stepped up and down by buttons and keys. It shows `value`, and asks for another one by
// `moved`; what it is bound to may settle on another still.
ColumnLayout {
    id: root

    required property string label
    required property string lessName
    required property string moreName
    required property int value

    signal moved(value: int)

    spacing: 4
    onValueChanged: {
        // What is being typed stays as it is for as long as it means the same: "-", "007".
        if (field.typed() !== root.value)
            field.text = root.value;
    }

    component StepButton: SymbolButton {
        implicitWidth: 32
        implicitHeight: 32
        labelSize: 15
        tracking: 0
        colour: Theme.text
        edge: Theme.edge
        autoRepeat: true
    }

    CapitalLabel {
        text: root.label
        size: 9
        Accessible.ignored: true
    }
    RowLayout {
        spacing: 4

        StepButton {
            text: "−"
            name: root.lessName
            onClicked: root.moved(root.value - 1)
        }
        InputField {
            id: field

            implicitWidth: 64
            text: "0"
            horizontalAlignment: TextInput.AlignHCenter
            inputMethodHints: Qt.ImhFormattedNumbersOnly
            Accessible.name: root.label
            onTextEdited: root.moved(typed())
            onEditingFinished: text = root.value
            onActiveFocusChanged: {
                if (activeFocus)
                    selectAll();
                else
                    text = root.value;
            }
            Keys.onUpPressed: root.moved(root.value + 1)
            Keys.onDownPressed: root.moved(root.value - 1)

            function typed(): int {
                return parseInt(text, 10) || 0;
            }

            validator: RegularExpressionValidator {
                regularExpression: /[+-]?\d{0,4}/
            }
        }
        StepButton {
            text: "+"
            name: root.moreName
            onClicked: root.moved(root.value + 1)
        }
    }
}
