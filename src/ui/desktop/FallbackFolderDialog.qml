import QtQuick.Dialogs

// Asks for one folder where the desktop has no dialog of its own for that.
FolderDialog {
    objectName: "folderDialog"
}
