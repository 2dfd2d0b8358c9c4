import QtQuick
import QtQuick.Layouts
import Vellomar

// Which date was chosen, why, and what else was considered.
ColumnLayout {
    id: tab

    required property Inspector model

    spacing: 10

    CapitalLabel {
        text: qsTr("CHOSEN DATE")
        size: 9
    }
    Rectangle {
        objectName: "chosenBox"
        implicitHeight: chosen.implicitHeight + 28
        radius: 4
        color: tab.model.isStrong ? Theme.copyBadge : "#1a1000"
        border.width: 1
        border.color: tab.model.isStrong ? Theme.success : Theme.alertOrange
        Layout.fillWidth: true

        RowLayout {
            id: chosen
            anchors.verticalCenter: parent.verticalCenter
            x: 16
            width: parent.width - 32
            spacing: 12

            ColumnLayout {
                spacing: 4
                Layout.fillWidth: true

                BodyText {
                    objectName: "chosenDate"
                    text: tab.model.chosenDate
                    size: 15
                    colour: Theme.yellow
                    font.bold: true
                    Layout.fillWidth: true
                }
                BodyText {
                    objectName: "chosenSource"
                    text: tab.model.chosenSource
                    colour: Theme.success
                    Layout.fillWidth: true
                }
            }
            ColumnLayout {
                spacing: 2

                BodyText {
                    objectName: "strength"
                    text: tab.model.isStrong ? qsTr("STRONG") : qsTr("WEAK")
                    colour: tab.model.isStrong ? Theme.success : Theme.alertOrange
                    font.bold: true
                    font.letterSpacing: 1
                    Layout.alignment: Qt.AlignRight
                }
                BodyText {
                    objectName: "confidence"
                    text: tab.model.isStrong ? qsTr("High confidence") : qsTr("Low confidence")
                    size: 9
                    colour: Theme.secondaryText
                    Layout.alignment: Qt.AlignRight
                }
            }
        }
    }
    CapitalLabel {
        text: qsTr("WHY")
        size: 9
        Layout.topMargin: 8
    }
    Rectangle {
        implicitHeight: why.implicitHeight + 32
        radius: 4
        color: Theme.inset
        Layout.fillWidth: true

        BodyText {
            id: why
            objectName: "explanation"
            x: 16
            y: 16
            width: parent.width - 32
            text: tab.model.explanation
            colour: Theme.text
            lineHeight: 1.25
        }
    }
    CapitalLabel {
        text: qsTr("ALL DATE CANDIDATES (ranked by confidence)")
        size: 9
        font.capitalization: Font.MixedCase
        visible: candidates.count > 0
        Layout.topMargin: 8
    }
    Repeater {
        id: candidates
        model: tab.model.candidates

        CandidateRow {
            Layout.fillWidth: true
        }
    }
}
