import QtQuick.Dialogs

// Asks for files where the desktop has no dialog of its own for that.
FileDialog {
    objectName: "fileDialog"
    fileMode: FileDialog.OpenFiles
}
