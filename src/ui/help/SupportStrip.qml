import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// How the maker can be supported, and where the maker is found. What leads nowhere is not offered.
Column {
    id: strip

    required property Help model

    spacing: 8
    bottomPadding: 14

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    CapitalLabel {
        topPadding: 6
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("SUPPORT VELLOMAR")
        size: 9
        colour: Theme.dimmerTertiaryText
    }
    BodyText {
        x: 14
        width: parent.width - 2 * x
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("If Vellomar saves you time, a coffee keeps development going.")
        size: 9
        colour: Theme.dimmerTertiaryText
    }
    PrimaryButton {
        objectName: "supportButton"
        anchors.horizontalCenter: parent.horizontalCenter
        text: qsTr("☕ BUY ME A COFFEE")
        Accessible.name: qsTr("BUY ME A COFFEE")
        implicitHeight: 28
        labelSize: 9
        visible: strip.model.hasSupportPage
        onClicked: strip.model.openSupportPage()
    }
    AbstractButton {
        id: site
        objectName: "siteLink"
        anchors.horizontalCenter: parent.horizontalCenter
        text: strip.model.makerSite
        visible: text !== ""
        Accessible.role: Accessible.Link
        Accessible.name: text
        onClicked: strip.model.openMakerSite()
        Keys.onReturnPressed: strip.model.openMakerSite()
        Keys.onEnterPressed: strip.model.openMakerSite()

        contentItem: BodyText {
            text: site.text
            size: 9
            colour: Theme.faintText
            font.underline: true
            Accessible.ignored: true
        }
        background: Item {
            FocusRing {
                shown: site.visualFocus
            }
        }

        HoverHandler {
            cursorShape: Qt.PointingHandCursor
        }
    }
}
