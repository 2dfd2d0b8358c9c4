import QtQuick
import Vellomar

// A token to be clicked, or dragged onto the field.
ActionButton {
    id: chip

    required property string token

    text: token
    capitals: false
    tracking: 0
    radius: 3
    implicitHeight: 24
    leftPadding: 8
    rightPadding: 8
    colour: Theme.yellow
    fill: Theme.yellowTint
    hoverFill: Theme.edge
    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.mimeData: ({"text/plain": chip.token})
    // What is seen under the mouse while it is dragged.
    onPressed: grabToImage(picture => chip.Drag.imageSource = picture.url)

    DragHandler {
        target: null
        // No binding: the drag goes on inside this very change until it ends.
        onActiveChanged: chip.Drag.active = active
    }
}
