import QtQuick
import QtQuick.Templates as T
import Vellomar

// The tour: the window behind a scrim that is thinner over the area that is spoken of, and the callout beside it.
ModalPopup {
    id: root

    required property TourModel tour
    required property var areas  // by name, the items that are spoken of
    readonly property Item area: areas[tour.area] ?? null

    property ScrollArea scrolled: null
    property real scrolledFrom: 0
    property bool isResized: false
    property rect areaPlace: Qt.rect(0, 0, 0, 0)
    property rect sight: Qt.rect(0, 0, 0, 0)
    readonly property var place: tour.placeIn(Qt.size(width, height), areaPlace, sight,
        Qt.size(callout.width, callout.height))

    width: parent?.width ?? 0
    height: parent?.height ?? 0
    visible: tour.isShown

    onOpened: {
        callout.forwardButton.forceActiveFocus(Qt.OtherFocusReason);
        show();
    }
    onClosed: scrollBack()
    onWidthChanged: isResized = true
    onHeightChanged: isResized = true

    // The area in which it scrolls; null for one that does not.
    function scrollAreaAround(item: Item): ScrollArea {
        let above = item;
        while (above && !(above as ScrollArea))
            above = above.parent;
        return above as ScrollArea;
    }

    // As the window showed it before.
    function scrollBack() {
        if (!scrolled)
            return;
        scrolled.contentY = scrolledFrom;
        scrolled.endRoom = 0;
        scrolled = null;
    }

    // Needs the window to be laid out.
    function show() {
        isResized = false;
        scrollBack();
        scrolled = scrollAreaAround(area);
        if (scrolled) {
            scrolledFrom = scrolled.contentY;
            scrolled.endRoom = scrolled.height;
            const visibleRect = placeOf(scrolled);
            scrolled.bring(area, tour.areaTop(Qt.size(width, height), area.height, visibleRect) - visibleRect.y);
        }
        follow();
    }

    function placeOf(item: Item): rect {
        return item.mapToItem(frame, 0, 0, item.width, item.height);
    }

    // Where the area lies changes with the window, and with what lies above.
    function follow() {
        if (!area)
            return;
        areaPlace = placeOf(area);
        sight = scrolled ? placeOf(scrolled) : Qt.rect(0, 0, width, height);
    }

    T.Overlay.modal: Item {}
    background: Item {}

    Connections {
        target: root.tour
        enabled: root.opened

        function onChanged() {
            root.show();
        }
    }
    Connections {
        target: root.visible ? root.parent.Window.window : null

        // Everything is laid out by now.
        function onAfterAnimating() {
            if (root.isResized)
                root.show();
            else
                root.follow();
        }
    }

    FocusScope {
        id: frame
        objectName: "tour"
        anchors.fill: parent
        focus: true
        Keys.onEscapePressed: root.tour.dismiss()
        Keys.onRightPressed: root.tour.goForward()
        Keys.onLeftPressed: root.tour.goBack()

        TourScrim {
            anchors.fill: parent
            spot: root.place.spot
            onTapped: root.tour.dismiss()
        }
        TourCallout {
            id: callout
            tour: root.tour
            place: root.place
        }
        TextButton {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 12
            text: qsTr("Skip Tour")
            colour: hovered ? Theme.text : Theme.dimmerTertiaryText
            onClicked: root.tour.dismiss()
        }
    }
}
