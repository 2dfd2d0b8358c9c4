import QtQuick
import Vellomar

// One of the inspector's tabs.
ActionButton {
    id: tab

    required property Inspector model
    required property int place
    readonly property bool isShown: model.tab === place

    implicitHeight: 38
    leftPadding: 4
    rightPadding: 4
    radius: 0
    labelSize: 9
    symbolSize: 12
    colour: isShown ? Theme.yellow : Theme.tertiaryText
    Accessible.checkable: true
    Accessible.checked: isShown
    onClicked: model.tab = place

    Rectangle {
        objectName: "tabLine"
        anchors.bottom: parent.bottom
        width: parent.width
        height: 2
        color: Theme.yellow
        opacity: tab.isShown ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: 150
            }
        }
    }
}
