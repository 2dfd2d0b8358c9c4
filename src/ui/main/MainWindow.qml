import QtQuick
import QtQuick.Controls.Basic
import Vellomar

// The main window. Its content is shown by ContentView; here is what concerns the window itself.
ApplicationWindow {
    id: window

    required property ContentViewModel content
    // As a mere child it would lie over this one for good.
    readonly property FilePlanWindow planWindow: FilePlanWindow {
        flow: window.content.planWindow
    }

    title: "Vellomar Organizer"
    width: Math.min(1280, Math.max(minimumWidth, Screen.desktopAvailableWidth))
    height: Math.min(832, Math.max(minimumHeight, Screen.desktopAvailableHeight))
    minimumWidth: 900
    minimumHeight: 600
    color: Theme.windowBackground
    palette.window: Theme.windowBackground
    palette.windowText: Theme.text

    onClosing: event => {
        event.accepted = window.content.quit.mayClose();
        // The program ends with its last window.
        if (event.accepted)
            window.content.planWindow.close();
    }

    Shortcut {
        sequence: "Ctrl+R"
        enabled: window.content.run.canStart
        onActivated: window.content.run.askRun()
    }
    Shortcut {
        sequence: "Ctrl+."
        enabled: window.content.run.canCancel
        onActivated: window.content.run.cancelRun()
    }
    Shortcut {
        sequence: "F1"
        onActivated: window.content.help.open()
    }
    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: window.close()
    }
    Shortcut {
        sequence: "Ctrl+Alt+Meta+F"
        onActivated: window.content.toggleFloppyMode()
    }

    ContentView {
        id: view
        anchors.fill: parent
        content: window.content
    }
    ContentSheets {
        content: window.content
        tourAreas: view.tourAreas
    }
}
