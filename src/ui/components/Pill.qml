import QtQuick
import Vellomar

// One of a few choices, or one of a few things of which each is in or out. It shows `isChosen`, and asks for another
// state by `clicked`; whoever binds `isChosen` changes what it is bound to.
ActionButton {
    id: pill

    property bool isChosen: false
    property bool isDangerous: false  // what is chosen with it deserves a warning

    implicitHeight: 24
    leftPadding: 10
    rightPadding: 10
    radius: 12
    tracking: 0.5
    capitals: false
    colour: isChosen ? isDangerous ? "#ffffff" : Theme.windowBackground : Theme.secondaryText
    fill: isChosen ? isDangerous ? Theme.alertRed : Theme.yellow : "transparent"
    hoverFill: isChosen ? fill : Theme.rowTint
    edge: isChosen ? fill : Theme.edge
    // By this a screen reader hears whether it is chosen.
    checkable: true
    checked: isChosen
    Accessible.checkable: true
    Accessible.checked: isChosen
    onClicked: checked = Qt.binding(() => pill.isChosen)
}
