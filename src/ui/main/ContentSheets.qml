import QtQuick
import Vellomar

// What opens over the window.
Item {
    id: sheets

    required property ContentViewModel content
    required property var tourAreas
    // What opens by itself waits for these, and until the last of them has given the focus back.
    property bool isOneOpen

    Binding {
        target: sheets
        property: "isOneOpen"
        delayed: true
        value: dryRun.visible || realRun.visible || undo.visible || presets.visible || rules.visible || watch.visible
            || duplicates.visible || statistics.visible || dates.visible || hashAlert.visible || overwriteAlert.visible
            || inspector.visible || quit.visible || help.visible || changelog.visible
            || wizard.visible || tour.visible
    }

    DryRunConfirmSheet {
        id: dryRun
        model: sheets.content.dryRun
        visible: sheets.content.run.isDryRunAsked
        onRunRequested: sheets.content.run.startDryRun()
        onDismissed: sheets.content.run.dismissDryRun()
    }
    RunSummaryView {
        id: realRun
        model: sheets.content.realRun
        visible: sheets.content.run.isRunAsked
        onConfirmed: sheets.content.run.confirmRun()
        onCancelled: sheets.content.run.dismissRun()
        onSwitchedToDryRun: sheets.content.run.switchToDryRun()
    }
    UndoSheetView {
        id: undo
        model: sheets.content.undo.sheet
        visible: sheets.content.undo.isOpen
        isUndoing: sheets.content.undo.isUndoing
        onImportRequested: sheets.content.undo.pickFiles()
        onUndoRequested: sheets.content.undo.undoSelected()
        onDismissed: sheets.content.undo.dismiss()
    }
    PresetsSheet {
        id: presets
        model: sheets.content.presets
        visible: sheets.content.presets.isOpen
    }
    RenameRulesSheet {
        id: rules
        model: sheets.content.rules
        visible: sheets.content.rules.isOpen
    }
    WatchFolderSheet {
        id: watch
        model: sheets.content.watch
        visible: sheets.content.watch.isOpen
    }
    CardImportSheet {
        model: sheets.content.cards
        visible: sheets.content.cards.isOpen && !sheets.isOneOpen
    }
    DuplicateViewerSheet {
        id: duplicates
        model: sheets.content.duplicates
        visible: sheets.content.duplicates.isOpen
    }
    LibraryStatsSheet {
        id: statistics
        model: sheets.content.statistics
        visible: sheets.content.statistics.isOpen
    }
    DateCorrectionView {
        id: dates
        model: sheets.content.dates
        visible: sheets.content.dates.isOpen
        lacksExifTool: sheets.content.lacksExifTool
    }
    AlertSheet {
        id: hashAlert
        title: qsTr("SHA-256 Hashing on Large Library?")
        message: qsTr("Hashing 50,000+ files can add 1–3 hours. Consider leaving this off for large libraries.")
        answer: qsTr("Enable Anyway")
        visible: sheets.content.options.isHashAsked
        onConfirmed: sheets.content.options.enableHash()
        onCancelled: sheets.content.options.dismissHash()
    }
    AlertSheet {
        id: overwriteAlert
        title: qsTr("Overwrite Existing Files?")
        message: qsTr("OVERWRITE replaces existing files permanently. This cannot be undone. Consider using Rename to keep "
            + "both copies.")
        answer: qsTr("Use Overwrite")
        visible: sheets.content.options.isOverwriteAsked
        onConfirmed: sheets.content.options.useOverwrite()
        onCancelled: sheets.content.options.dismissOverwrite()
    }
    HelpSheet {
        id: help
        model: sheets.content.help
        visible: sheets.content.help.isOpen
    }
    ChangelogSheet {
        id: changelog
        model: sheets.content.changelog
        visible: sheets.content.changelog.isOpen
    }
    FirstRunWizard {
        id: wizard
        model: sheets.content.firstRun.wizard
        visible: sheets.content.firstRun.wizard.isOpen
    }
    UITourOverlay {
        id: tour
        tour: sheets.content.firstRun.tour
        areas: sheets.tourAreas
    }
    EXIFViewerSheet {
        id: inspector
        model: sheets.content.plan.inspector
    }
    QuitSheet {
        id: quit
        quit: sheets.content.quit
    }
}
