import QtQuick
import Vellomar

// That a run will delete the originals.
WarningBox {
    heading: qsTr("MOVE MODE IS ACTIVE")
    explanation: qsTr("Source files will be deleted after copying. Run a Dry Run first to review the file plan before proceeding.")
}
