import QtQuick

// Where the cells of the plan's rows stand in a panel of a certain width. In a narrow one the source stands above the
// destination and the camera above the date.
QtObject {
    property real width: 0

    readonly property bool isNarrow: width < 560
    readonly property int gap: 8
    readonly property int start: 14 + 36 + 10
    readonly property real end: width - 14
    readonly property real room: end - start

    readonly property real dateWidth: isNarrow ? 104 : 118
    readonly property real cameraWidth: isNarrow ? dateWidth : Math.max(70, Math.min(150, room * 0.15))
    readonly property real actionWidth: isNarrow ? 48 : 84
    readonly property real pathsWidth: isNarrow ? room - dateWidth - actionWidth - 2 * gap
        : room - dateWidth - actionWidth - cameraWidth - 4 * gap
    readonly property real sourceWidth: isNarrow ? pathsWidth : Math.round(pathsWidth * 0.45)
    readonly property real destinationWidth: isNarrow ? pathsWidth : pathsWidth - sourceWidth

    readonly property real sourceX: start
    readonly property real destinationX: isNarrow ? start : start + sourceWidth + gap
    readonly property real dateX: end - dateWidth
    readonly property real cameraX: isNarrow ? dateX : destinationX + destinationWidth + gap
    readonly property real actionX: dateX - gap - actionWidth

    // The middle of a cell in a row, for cells that share their place in a narrow panel and for those that do not.
    function upper(height: real): real {
        return isNarrow ? height * 0.3 : height / 2;
    }

    function lower(height: real): real {
        return isNarrow ? height * 0.7 : height / 2;
    }
}
