import QtQuick
import Vellomar

// What the rows of both lists of the plan have in common: the values of a file, the divider above it where a new event
// begins, and a row that can be clicked and has the keyboard's focus while the list has it.
Item {
    id: row

    required property int index
    required property string fileName
    required property string sourceFolder
    required property string shortSource
    required property string destination
    required property string shortDestination
    required property string camera
    required property string action
    required property color badgeFill
    required property color badgeText
    required property color badgeEdge
    required property string date
    required property bool isDup
    required property bool beginsEvent
    required property url thumbnail

    property int rowHeight: 44
    readonly property int dividerHeight: 24
    property color evenFill: Theme.inset
    property color oddFill: Theme.sidePanel
    readonly property bool isCurrent: ListView.isCurrentItem && (ListView.view?.activeFocus ?? false)
    default property alias cells: box.data

    signal inspected

    width: ListView.view?.width ?? 0
    // Known from the start: a list makes rows until it is full.
    height: rowHeight + (beginsEvent ? dividerHeight : 0)
    Accessible.role: Accessible.ListItem
    Accessible.name: row.fileName
    Accessible.description: `${row.destination}, ${row.camera}, ${row.date}${row.isDup ? ", " + qsTr("DUP") : ""}`
    Accessible.selectable: true
    Accessible.selected: ListView.isCurrentItem
    Accessible.onPressAction: inspected()

    Loader {
        active: row.beginsEvent
        width: parent.width
        height: row.dividerHeight

        sourceComponent: EventDivider {}
    }
    Rectangle {
        id: box
        objectName: "planRow"
        anchors.bottom: parent.bottom
        width: parent.width
        height: row.rowHeight
        color: hover.hovered || row.isCurrent ? Theme.rowTint : row.isDup ? Theme.duplicateRow
            : row.index % 2 === 0 ? row.evenFill : row.oddFill

        HoverHandler {
            id: hover
        }
        TapHandler {
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: row.inspected()
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.hairline
        }
        FocusRing {
            gap: -1
            radius: 0
            border.width: 1
            shown: row.isCurrent
        }
    }
}
