import QtQuick
import QtQuick.Layouts
import Vellomar

// What the list holds, and what it leaves out.
Rectangle {
    id: footer

    required property FilePlan plan
    readonly property PlanModel rows: plan.rows
    readonly property bool hasFilters: plan.filters.activeCount > 0

    implicitHeight: 34
    color: Theme.sidePanel

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: 8

        Symbol {
            name: "exclamationmark.triangle.fill"
            colour: Theme.yellow
            visible: footer.rows.isCapped
        }
        BodyText {
            objectName: "footerText"
            text: footer.rows.isCapped
                ? qsTr("Preview limited to 5,000 of %1 files — full plan saved to CSV").arg(footer.rows.scanned)
                : footer.hasFilters ? qsTr("Showing %1 of %2 files").arg(footer.rows.count).arg(footer.rows.total)
                : qsTr("%1 files · click any row to inspect").arg(footer.rows.total)
            size: 10
            colour: footer.rows.isCapped || footer.hasFilters ? Theme.yellow : Theme.tertiaryText
            elide: Text.ElideRight
            wrapMode: Text.NoWrap
            Layout.fillWidth: true
        }
    }
}
