import QtQuick
import Vellomar

// What is amiss around the program, a line each, until it is put away.
Column {
    id: strip

    required property Notices notices

    Repeater {
        model: strip.notices

        NoticeLine {
            width: parent?.width ?? 0
            onDismissed: (parent as NoticeStrip).notices.dismiss(index)
        }
    }
}
