import QtQuick
import QtQuick.Layouts
import Vellomar

// How the run goes, what it is about, what begins it, and its log.
ColumnLayout {
    id: column

    required property ContentViewModel content
    readonly property alias dashboardArea: dashboard
    readonly property alias actionsArea: actions

    spacing: 0

    ProgressArea {
        status: column.content.status
        visible: column.content.status.hasRun
        Layout.fillWidth: true
    }
    ScrollArea {
        padding: 16
        Layout.fillWidth: true
        Layout.fillHeight: true

        ColumnLayout {
            width: parent.width
            spacing: 12

            StatCardRow {
                id: dashboard
                labels: column.content.status.cardLabels
                values: column.content.status.cardValues
                Layout.fillWidth: true
            }
            BannerBox {
                visible: column.content.hasBanner
                symbol: column.content.bannerSymbol
                colour: column.content.bannerColour
                text: column.content.bannerText
                Layout.fillWidth: true
            }
            NamingPanel {
                naming: column.content.naming
                Layout.fillWidth: true
            }
            FilePlanPanel {
                plan: column.content.plan
                planWindow: column.content.planWindow
                run: column.content.run
                Layout.fillWidth: true
            }
            ActionRow {
                id: actions
                run: column.content.run
                Layout.fillWidth: true
            }
        }
    }
    ActivityLog {
        log: column.content.log
        exports: column.content.exports
        Layout.fillWidth: true
    }
}
