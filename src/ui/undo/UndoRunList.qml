import QtQuick
import Vellomar

// The runs. Up and down move the selection, as does a click.
ListView {
    id: root

    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    reuseItems: true
    keyNavigationEnabled: false
    currentIndex: model.selectedRow
    highlightMoveDuration: 0
    onHeightChanged: positionViewAtIndex(currentIndex, ListView.Contain)
    Accessible.role: Accessible.List
    Accessible.name: qsTr("UNDO A RUN")
    Keys.onUpPressed: model.selectPrevious()
    Keys.onDownPressed: model.selectNext()

    delegate: UndoRunRow {
        width: ListView.view.width
        hasFocus: ListView.view.activeFocus && isSelected
        onChosen: {
            ListView.view.forceActiveFocus(Qt.MouseFocusReason);
            ListView.view.model.select(index);
        }
    }

    FocusRing {
        parent: root
        gap: -1
        radius: 0
        border.width: 1
        shown: root.activeFocus && root.currentIndex < 0
    }

    ScrollTrack {
        parent: root
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        anchors.rightMargin: 4
        flickable: root
    }
}
