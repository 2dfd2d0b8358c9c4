pragma Singleton
import QtQuick
import QtQuick.Templates as T

// The explanation that was opened last.
QtObject {
    property T.Popup popover: null

    function replaceBy(next: T.Popup) {
        const previous = popover;
        popover = next;
        if (previous !== next)
            previous?.close();
    }
}
