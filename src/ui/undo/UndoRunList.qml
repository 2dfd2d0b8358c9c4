import QtQuick
import Vellomar

// The runs. Up and down move the selection, as does a click.
ScrollList {
    id: root

    activeFocusOnTab: true
    currentIndex: model.selectedRow
    onHeightChanged: positionViewAtIndex(currentIndex, ListView.Contain)
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
}
