import QtQuick
import Vellomar

// A list, or while there is nothing in it a note that says so.
Item {
    id: root

    property string note
    property string name  // for a screen reader
    property alias model: list.model
    property alias delegate: list.delegate
    property alias refuge: list.refuge

    function showEnd() {
        list.positionViewAtEnd();
    }

    BodyText {
        anchors.centerIn: parent
        text: root.note
        colour: Theme.tertiaryText
        visible: list.count === 0
    }
    ScrollList {
        id: list
        anchors.fill: parent
        visible: count > 0
        Accessible.name: root.name
    }
}
