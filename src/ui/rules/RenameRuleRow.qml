import QtQuick
import QtQuick.Layouts
import Vellomar

// One rule: whether it counts, what it looks for, and what it makes of it.
Rectangle {
    id: row

    required property int index
    required property string matchText
    required property string replacement
    required property bool isEnabled
    readonly property string words: qsTr("%1 → %2").arg(row.matchText).arg(row.replacement)

    signal toggled(isOn: bool)
    signal deleted

    component RuleText: BodyText {
        size: 12
        elide: Text.ElideMiddle
        wrapMode: Text.NoWrap
        Accessible.ignored: true
        Layout.fillWidth: true
        Layout.preferredWidth: 1
    }

    implicitHeight: 40
    color: hover.hovered ? Theme.rowTint : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: row.words

    HoverHandler {
        id: hover
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 20
        spacing: 8

        YellowToggleStyle {
            id: knob
            text: qsTr("Enable %1").arg(row.words)
            display: YellowToggleStyle.IconOnly
            checked: row.isEnabled
            onToggled: {
                row.toggled(checked);
                checked = Qt.binding(() => row.isEnabled);
            }
            Layout.preferredWidth: 36
        }
        RuleText {
            objectName: "matchText"
            colour: row.isEnabled ? Theme.text : Theme.disabledText
            text: row.matchText
        }
        Symbol {
            name: "arrow.right"
            size: 10
            colour: row.isEnabled ? Theme.tertiaryText : Theme.disabledText
        }
        RuleText {
            objectName: "replacement"
            colour: row.isEnabled ? Theme.text : Theme.disabledText
            text: row.replacement
        }
        CloseButton {
            Accessible.name: qsTr("Delete %1").arg(row.words)
            Accessible.description: ""
            onClicked: row.deleted()
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
