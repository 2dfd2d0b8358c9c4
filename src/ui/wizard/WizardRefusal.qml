import QtQuick
import Vellomar

// Why what was chosen or dropped last was not taken.
BodyText {
    required property Folders folders

    objectName: "wizardRefusal"
    text: folders.refusal
    colour: Theme.alertRed
    visible: text !== ""
    Accessible.role: Accessible.AlertMessage
}
