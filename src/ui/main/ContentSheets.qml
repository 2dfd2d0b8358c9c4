import QtQuick
import Vellomar

// What opens over the window.
Item {
    id: sheets

    required property ContentViewModel content

    DryRunConfirmSheet {
        model: sheets.content.dryRun
        visible: sheets.content.run.isDryRunAsked
        onRunRequested: sheets.content.run.startDryRun()
        onDismissed: sheets.content.run.dismissDryRun()
    }
    RunSummaryView {
        model: sheets.content.realRun
        visible: sheets.content.run.isRunAsked
        onConfirmed: sheets.content.run.confirmRun()
        onCancelled: sheets.content.run.dismissRun()
        onSwitchedToDryRun: sheets.content.run.switchToDryRun()
    }
    UndoSheetView {
        model: sheets.content.undo.sheet
        visible: sheets.content.undo.isOpen
        isUndoing: sheets.content.undo.isUndoing
        onImportRequested: sheets.content.undo.pickFiles()
        onUndoRequested: sheets.content.undo.undoSelected()
        onDismissed: sheets.content.undo.dismiss()
    }
    QuitSheet {
        quit: sheets.content.quit
    }
}
