import QtQuick
import Vellomar

// Looks for rows while it is typed into.
InputField {
    id: field

    implicitWidth: 170
    implicitHeight: 28
    leftPadding: 26
    rightPadding: 26
    placeholderText: qsTr("Search…")
    quietEdge: "#3a3a38"

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        x: 9
        name: "magnifyingglass"
        colour: Theme.secondaryText
    }
    SymbolButton {
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 2
        symbol: "xmark.circle.fill"
        name: qsTr("Clear search")
        visible: field.text !== ""
        onClicked: {
            field.clear();
            field.textEdited();
            field.forceActiveFocus(Qt.OtherFocusReason);
        }
    }
}
