import QtQuick
import QtQuick.Layouts
import Vellomar

// One date that was considered. The first is the one that was chosen.
RowLayout {
    id: row

    required property int index
    required property var modelData
    readonly property bool isFirst: index === 0

    spacing: 10
    Accessible.role: Accessible.ListItem
    Accessible.name: `${index + 1}. ${modelData.source}, ${modelData.date}, ${modelData.score}`

    component Cell: PlanCell {
        elide: Text.ElideMiddle
        size: 10
    }

    Cell {
        objectName: "candidateRank"
        text: row.index + 1
        color: row.isFirst ? Theme.yellow : Theme.tertiaryText
        Layout.preferredWidth: 24
    }
    Cell {
        objectName: "candidateSource"
        text: row.modelData.source
        color: row.isFirst ? Theme.text : Theme.secondaryText
        Layout.preferredWidth: 200
    }
    Cell {
        objectName: "candidateDate"
        text: row.modelData.date
        color: row.isFirst ? Theme.yellow : Theme.tertiaryText
        Layout.fillWidth: true
    }
    Rectangle {
        implicitWidth: 80
        implicitHeight: 4
        radius: 2
        color: Theme.popover

        Rectangle {
            objectName: "candidateBar"
            width: parent.width * row.modelData.share
            height: parent.height
            radius: 2
            color: Theme.yellow
        }
    }
    Cell {
        objectName: "candidateScore"
        text: row.modelData.score
        color: row.isFirst ? Theme.text : Theme.secondaryText
        horizontalAlignment: Text.AlignRight
        Layout.preferredWidth: 28
    }
}
