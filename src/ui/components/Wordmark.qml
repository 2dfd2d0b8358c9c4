import QtQuick
import Vellomar

// The program's name as it is drawn: 15 high in the header, 32 in the wizard, 16 in the changelog.
Row {
    id: root

    property int size: 15

    component Part: Text {
        required property int size

        font.family: Theme.fontFamily
        font.pixelSize: size
        font.weight: Font.Black
        font.letterSpacing: size * 0.06
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: "VELLO | MAR"

    Part {
        size: root.size
        text: "VELLO"
        color: Theme.yellow
    }

    Part {
        size: root.size
        text: " | "
        color: Theme.faintText
    }

    Part {
        size: root.size
        text: "MAR"
        color: Theme.text
    }
}
