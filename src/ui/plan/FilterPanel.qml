import QtQuick
import QtQuick.Layouts
import Vellomar

// The values that rows can be filtered by, side by side in three respects. It slides down and fades in.
Rectangle {
    id: panel

    required property PlanFilters filters
    property bool isShown: false

    implicitHeight: isShown ? columns.implicitHeight + 1 : 0
    opacity: isShown ? 1 : 0
    visible: implicitHeight > 0
    clip: true
    color: Theme.windowBackground

    Behavior on implicitHeight {
        NumberAnimation {
            duration: 180
            easing.type: Easing.InOutQuad
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: 180
        }
    }

    RowLayout {
        id: columns
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 1
        width: parent.width
        spacing: 1

        FilterColumnView {
            column: panel.filters.cameras
            symbol: "camera"
            title: qsTr("CAMERA")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        FilterColumnView {
            column: panel.filters.years
            symbol: "calendar"
            title: qsTr("YEAR")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
        FilterColumnView {
            column: panel.filters.folders
            symbol: "folder"
            title: qsTr("EVENT / FOLDER")
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
