import QtQuick
import QtQuick.Layouts
import Vellomar

// Shifts the dates inside files. Return does not start it, and nor does a second click that was one too many: it is the
// originals that are written to.
Sheet {
    id: root

    required property DateCorrection model
    property bool lacksExifTool: false

    symbol: "clock.badge.checkmark"
    title: qsTr("DATE CORRECTION")
    subtitle: qsTr("Fix timezone errors or clock drift by shifting EXIF dates on all photos in a folder.")
    minimumWidth: 540
    bodySpacing: 16
    canConfirm: false
    initialFocus: cancelButton
    onCancelled: model.close()

    function apply() {
        // The button is out of use while the shift is under way, and a focus on it would be lost.
        cancelButton.forceActiveFocus(Qt.OtherFocusReason);
        model.applyShift();
    }

    WarningBox {
        heading: qsTr("WRITES TO ORIGINAL FILES")
        explanation: qsTr("This tool modifies EXIF dates in-place using ExifTool. Original files are overwritten. Run a "
            + "dry run sort first so you have copies before using this on originals.")
        Layout.fillWidth: true
    }
    WarningBox {
        heading: qsTr("EXIFTOOL NOT FOUND")
        explanation: qsTr("Without it no file is changed, although all of them are counted as done.")
        visible: root.lacksExifTool
        Layout.fillWidth: true
    }
    TargetFolders {
        model: root.model
        enabled: !root.model.isRunning
        Layout.fillWidth: true
    }
    ShiftAmount {
        model: root.model
        enabled: !root.model.isRunning
        Layout.fillWidth: true
    }
    QuickSet {
        model: root.model
        enabled: !root.model.isRunning
        Layout.fillWidth: true
    }
    ShiftProgress {
        id: progress
        model: root.model
        Layout.fillWidth: true
        onImplicitHeightChanged: later.restart()
    }
    // What is to be seen has no place yet.
    Timer {
        id: later
        interval: 0
        onTriggered: root.scrollArea.reveal(progress)
    }

    cover: FolderDrop {
        anchors.fill: parent
        enabled: !root.model.isRunning
        text: qsTr("DROP FOLDER")
        onAddressesDropped: addresses => root.model.dropFolders(addresses)
    }

    footer: [
        FooterNote {
            first: root.model.countText
            second: root.model.hindrance
        },
        SecondaryButton {
            id: cancelButton
            text: root.model.isRunning ? qsTr("CLOSE") : qsTr("CANCEL")
            onClicked: root.cancelled()
        },
        PrimaryButton {
            text: qsTr("APPLY SHIFT")
            enabled: root.model.canApply
            onClicked: root.apply()
            // That the second click of two has a meaning of its own keeps it from being another press, which would shift
            // the dates twice where the first shift was a short one.
            onDoubleClicked: {}
        }
    ]
}
