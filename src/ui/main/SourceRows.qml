import QtQuick
import QtQuick.Layouts
import Vellomar

// The source folders, one below the other.
ColumnLayout {
    id: rows

    required property Folders folders

    spacing: 4

    Repeater {
        model: rows.folders.sources

        FolderRow {
            required property int index

            pictograph: "📁"
            onRemoved: (parent as SourceRows).folders.removeSource(index)
            Layout.fillWidth: true
        }
    }
}
