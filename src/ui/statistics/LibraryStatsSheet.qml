import QtQuick
import QtQuick.Layouts
import Vellomar

// What the last run counted: by year, camera, source of the date and type of file.
Sheet {
    id: root

    required property LibraryStatsModel model

    component Tile: StatCard {
        required property LibraryStatsModel model
        required property int place

        objectName: "statTile"
        label: model.tileLabels[place]
        value: model.tileValues[place]
        Layout.fillWidth: true
        Layout.preferredWidth: 1
    }

    symbol: "chart.bar.fill"
    title: qsTr("LIBRARY STATISTICS")
    minimumWidth: 680
    minimumHeight: 560
    bodyPadding: 0
    bodySpacing: 0
    scrolls: false
    keyScrolled: list
    initialFocus: closeButton
    onConfirmed: model.dismiss()
    onCancelled: model.dismiss()

    SheetStrip {
        Layout.fillWidth: true

        Tile {
            model: root.model
            place: 0
        }
        Tile {
            model: root.model
            place: 1
        }
        Tile {
            model: root.model
            place: 2
        }
        Tile {
            model: root.model
            place: 3
        }
    }
    ScrollList {
        id: list
        objectName: "statList"
        model: root.model
        currentIndex: -1
        Accessible.name: root.title
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 24

        footer: Item {
            height: 16
        }

        section.property: "heading"
        section.delegate: StatHeading {
            width: (ListView.view?.width ?? 0) - 24
            symbol: (ListView.view?.model as LibraryStatsModel)?.symbolOf(section) ?? ""
        }

        delegate: StatBarRow {
            width: (ListView.view?.width ?? 0) - 24
        }
    }

    footer: [
        Item {
            Layout.fillWidth: true
        },
        PrimaryButton {
            id: closeButton
            text: qsTr("CLOSE")
            onClicked: root.model.dismiss()
        }
    ]
}
