import QtQuick
import Vellomar

// One of the parts of the log that can be shown.
ActionButton {
    required property LogModel log
    required property int part
    readonly property bool isShown: log.filter === part

    implicitHeight: 24
    leftPadding: 7
    rightPadding: 7
    labelSize: 9
    colour: isShown ? Theme.yellow : Theme.tertiaryText
    fill: isShown ? Theme.yellowTint : "transparent"
    Accessible.checkable: true
    Accessible.checked: isShown
    onClicked: log.filter = part
}
