import QtQuick
import Vellomar

// Text that can be selected and copied, with the mouse.
TextEdit {
    property int size: 11
    property color colour: Theme.text

    color: colour
    font.family: Theme.fontFamily
    font.pixelSize: size
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    readOnly: true
    selectByMouse: true
    selectionColor: Theme.yellow
    selectedTextColor: Theme.windowBackground
    activeFocusOnTab: false
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
