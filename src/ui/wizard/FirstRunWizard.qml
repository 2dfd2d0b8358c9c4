import QtQuick
import QtQuick.Layouts
import Vellomar

// The first settings, screen by screen. Whoever leaves it has completed it.
Sheet {
    id: root

    required property WizardModel model
    property int shownStep: 0

    title: qsTr("SETUP WIZARD")
    subtitle: model.title
    hasHeader: false
    minimumWidth: 620
    minimumHeight: 720
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: area
    initialFocus: footerRow.forwardButton
    onConfirmed: model.goForward()
    onCancelled: model.skipSetup()

    Item {
        implicitHeight: 32
        Layout.fillWidth: true

        Rectangle {
            objectName: "wizardTrack"
            x: 6  // clear of the rounded corners
            width: parent.width - 2 * x
            height: 3
            radius: 1.5
            color: Theme.progressTrack
            Accessible.role: Accessible.ProgressBar
            Accessible.name: root.model.positionText

            Rectangle {
                objectName: "wizardFill"

                property real fraction: root.model.fraction

                width: parent.width * fraction
                height: parent.height
                radius: parent.radius
                color: Theme.yellow

                Behavior on fraction {
                    NumberAnimation {
                        objectName: "wizardFillEase"
                        duration: 300
                        easing.type: Easing.InOutQuad
                    }
                }
            }
        }
        CloseButton {
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.bottom: parent.bottom
            onClicked: root.cancelled()
        }
    }
    ScrollArea {
        id: area
        padding: 24
        Layout.fillWidth: true
        Layout.fillHeight: true

        WizardScreenView {
            id: screen
            objectName: "wizardScreen"
            width: parent.width
            model: root.model

            // A new screen comes in from the side to which one goes.
            ParallelAnimation {
                id: entrance

                property int from: 0

                NumberAnimation {
                    target: screen
                    property: "x"
                    from: entrance.from
                    to: 0
                    duration: 250
                    easing.type: Easing.InOutQuad
                }
                NumberAnimation {
                    target: screen
                    property: "opacity"
                    from: 0
                    to: 1
                    duration: 250
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }

    Connections {
        target: root.model

        function onStepChanged() {
            area.contentY = 0;
            entrance.from = root.model.step < root.shownStep ? -32 : 32;
            root.shownStep = root.model.step;
            entrance.restart();
        }
    }

    footer: WizardFooter {
        id: footerRow
        model: root.model
        Layout.fillWidth: true
    }
}
