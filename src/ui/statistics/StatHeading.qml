import QtQuick
import Vellomar

// Above the rows of one section of the statistics.
Item {
    id: root

    required property string section
    required property string symbol

    height: 44
    Accessible.role: Accessible.Heading
    Accessible.name: section

    Symbol {
        objectName: "headingSymbol"
        anchors.verticalCenter: label.verticalCenter
        name: root.symbol
        colour: Theme.secondaryText
        size: 12
    }
    CapitalLabel {
        id: label
        objectName: "headingText"
        x: 20
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 8
        text: root.section
        Accessible.ignored: true
    }
}
