import QtQuick
import Vellomar

// The topics that were found. Up and down go from one to the next.
ScrollList {
    id: list

    activeFocusOnTab: count > 0
    currentIndex: (model as Help).shownRow
    onCurrentIndexChanged: {
        if (currentIndex >= 0)
            positionViewAtIndex(currentIndex, ListView.Contain);
    }
    Accessible.name: qsTr("VELLOMAR HELP")
    Keys.onUpPressed: (model as Help).selectPrevious()
    Keys.onDownPressed: (model as Help).selectNext()

    delegate: Rectangle {
        id: row

        required property int index
        required property string icon
        required property string title
        required property bool isShown

        objectName: "helpTopic"
        width: ListView.view?.width ?? 0
        height: Math.max(36, label.implicitHeight + 18)
        color: isShown ? Theme.rowTint : hover.hovered ? Qt.alpha(Theme.text, 0.03) : "transparent"
        Accessible.role: Accessible.ListItem
        Accessible.name: title
        Accessible.selectable: true
        Accessible.selected: isShown
        Accessible.onPressAction: choose()

        function choose() {
            (ListView.view.model as Help).select(index);
        }

        HoverHandler {
            id: hover
        }
        TapHandler {
            onTapped: row.choose()
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            x: 14
            name: row.icon
            colour: row.isShown ? Theme.yellow : Theme.tertiaryText
            size: 12
        }
        BodyText {
            id: label
            objectName: "helpTopicTitle"
            anchors.verticalCenter: parent.verticalCenter
            x: 36
            width: Math.max(0, row.width - x - 12)
            text: row.title
            colour: row.isShown ? Theme.text : Theme.secondaryText
            Accessible.ignored: true
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: "#151515"
        }
        FocusRing {
            gap: -1
            radius: 0
            border.width: 1
            shown: row.isShown && (row.ListView.view?.activeFocus ?? false)
        }
    }
}
