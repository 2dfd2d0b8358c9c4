import QtQuick
import QtQuick.Templates as T
import Vellomar

// Something over the window, which is out of reach meanwhile. It never closes itself. The keyboard's focus stays inside,
// and goes back to where it came from.
T.Popup {
    property Item returnTo: null

    parent: T.Overlay.overlay
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    onAboutToShow: returnTo = parent.Window.activeFocusItem
    onClosed: returnTo?.forceActiveFocus(Qt.OtherFocusReason)
}
