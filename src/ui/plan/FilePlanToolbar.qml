import QtQuick
import QtQuick.Layouts
import Vellomar

// How many rows there are, and what is looked for among them.
Rectangle {
    id: bar

    required property FilePlan plan
    readonly property PlanFilters filters: plan.filters
    readonly property bool hasFilters: filters.activeCount > 0
    property alias search: searchField
    property bool showsFilters: false

    implicitHeight: 48
    color: Theme.sidePanel

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: 10

        Symbol {
            name: "doc.text.magnifyingglass"
            colour: Theme.yellow
            size: 14
        }
        CapitalLabel {
            text: qsTr("FILE PLAN PREVIEW")
            colour: Theme.text
            font.bold: true
        }
        BodyText {
            objectName: "shownCount"
            text: qsTr("· %1 of %2").arg(bar.plan.rows.count).arg(bar.plan.rows.total)
            colour: Theme.secondaryText
        }
        SearchField {
            id: searchField
            text: bar.filters.searchText
            onTextEdited: bar.filters.searchText = text
            Layout.leftMargin: 6
        }
        ActionButton {
            objectName: "filterButton"
            text: bar.hasFilters ? qsTr("FILTER (%1)").arg(bar.filters.activeCount) : qsTr("FILTER")
            symbol: bar.hasFilters ? "line.3.horizontal.decrease.circle.fill" : "line.3.horizontal.decrease.circle"
            implicitHeight: 28
            leftPadding: 10
            rightPadding: 10
            labelSize: 9
            symbolSize: 12
            colour: bar.hasFilters ? Theme.yellow : Theme.secondaryText
            fill: bar.hasFilters ? Theme.yellowTint : "transparent"
            edge: bar.hasFilters ? Theme.yellow : "#3a3a38"
            Accessible.checkable: true
            Accessible.checked: bar.showsFilters
            onClicked: bar.showsFilters = !bar.showsFilters
        }
        SymbolButton {
            symbol: "xmark.circle.fill"
            name: qsTr("Clear all filters")
            colour: Theme.alertRed
            visible: bar.hasFilters
            onClicked: bar.filters.clear()
        }
        Item {
            Layout.fillWidth: true
        }
        DupChip {
            objectName: "duplicatesChip"
            text: qsTr("%1 DUP").arg(bar.plan.rows.duplicates)
            visible: bar.plan.rows.duplicates > 0
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
