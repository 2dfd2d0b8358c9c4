import QtQuick
import QtQuick.Layouts
import Vellomar

// What happened, line by line, as all of it or a part.
Rectangle {
    id: panel

    required property LogModel log
    required property Exports exports
    readonly property bool isNarrow: width < 440

    implicitHeight: column.implicitHeight
    color: Theme.inset

    ColumnLayout {
        id: column
        width: parent.width
        spacing: 0

        Rectangle {
            implicitHeight: 1
            color: Theme.hairline
            Layout.fillWidth: true
        }
        RowLayout {
            spacing: panel.isNarrow ? 2 : 4
            Layout.fillWidth: true
            Layout.leftMargin: 16
            Layout.rightMargin: 12
            Layout.preferredHeight: 36

            CapitalLabel {
                text: qsTr("ACTIVITY LOG")
                tracking: panel.isNarrow ? 0.5 : 1.5
                Layout.fillWidth: true
            }
            LogTab {
                text: qsTr("ALL")
                log: panel.log
                part: 0
            }
            LogTab {
                text: qsTr("ERRORS")
                log: panel.log
                part: 1
            }
            LogTab {
                text: qsTr("MOVED")
                log: panel.log
                part: 2
            }
            ToolRowButton {
                text: qsTr("COPY")
                symbol: "doc.on.doc"
                implicitHeight: 24
                leftPadding: panel.isNarrow ? 6 : 10
                rightPadding: leftPadding
                enabled: !panel.log.isEmpty
                onClicked: panel.exports.copyLog()
                Layout.leftMargin: 4
            }
            ToolRowButton {
                text: qsTr("EXPORT")
                symbol: "arrow.down.doc"
                implicitHeight: 24
                leftPadding: panel.isNarrow ? 6 : 10
                rightPadding: leftPadding
                enabled: !panel.log.isEmpty
                onClicked: panel.exports.exportLog()
            }
        }
        LogList {
            log: panel.log
            Layout.fillWidth: true
            Layout.preferredHeight: 180
        }
    }
}
