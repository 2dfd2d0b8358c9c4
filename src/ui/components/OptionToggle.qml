import QtQuick
import QtQuick.Layouts
import Vellomar

// A setting that is on or off. It shows `checked` and asks for another value by `toggled`; whoever binds `checked`
// changes what it is bound to.
Rectangle {
    id: root

    property string label
    property string subLabel
    property string tooltip
    property bool checked: false

    signal toggled(isOn: bool)

    implicitWidth: row.implicitWidth + 20
    implicitHeight: row.implicitHeight + 12
    radius: 4
    color: hover.hovered ? Qt.alpha(Theme.text, 0.05) : "transparent"

    HoverHandler {
        id: hover
    }

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: 6
        anchors.bottomMargin: 6
        spacing: 8

        ColumnLayout {
            spacing: 2
            Layout.fillWidth: true

            BodyText {
                objectName: "toggleLabel"
                text: root.label
                colour: root.checked ? Theme.text : Theme.secondaryText
                Layout.fillWidth: true
                Accessible.ignored: true
            }

            BodyText {
                objectName: "toggleSubLabel"
                text: root.subLabel
                size: 9
                colour: Theme.tertiaryText
                visible: text !== ""
                Layout.fillWidth: true
            }
        }

        HelpDot {
            objectName: "help"
            tooltip: root.tooltip
            visible: tooltip !== ""
        }

        YellowToggleStyle {
            id: knob
            objectName: "switch"
            text: root.label
            display: YellowToggleStyle.IconOnly
            checked: root.checked
            Accessible.description: root.subLabel
            onToggled: {
                root.toggled(checked);
                checked = Qt.binding(() => root.checked);
            }
        }
    }
}
