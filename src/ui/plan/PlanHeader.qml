import QtQuick
import Vellomar

// The titles of the plan's columns.
Rectangle {
    id: header

    required property PlanColumns columns

    component Title: CapitalLabel {
        size: 8
        tracking: 0.6
        colour: Theme.tertiaryText
    }

    implicitHeight: columns.isNarrow ? 36 : 26
    color: Theme.tableHeader

    Title {
        text: qsTr("SOURCE")
        x: header.columns.sourceX
        y: header.columns.upper(header.height) - height / 2
        width: header.columns.sourceWidth
    }
    Title {
        text: qsTr("DESTINATION")
        x: header.columns.destinationX
        y: header.columns.lower(header.height) - height / 2
        width: header.columns.destinationWidth
    }
    Title {
        text: qsTr("CAMERA")
        x: header.columns.cameraX
        y: header.columns.upper(header.height) - height / 2
        width: header.columns.cameraWidth
    }
    Title {
        text: qsTr("ACTION")
        x: header.columns.actionX
        y: (header.height - height) / 2
        width: header.columns.actionWidth
    }
    Title {
        text: qsTr("DATE RESOLVED")
        x: header.columns.dateX
        y: header.columns.lower(header.height) - height / 2
        width: header.columns.dateWidth
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
