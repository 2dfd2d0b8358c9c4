import QtQuick
import Vellomar

// The lines of the log. It follows the end unless the user scrolled away from it.
Item {
    id: root
    objectName: "logBody"

    required property LogModel log

    Connections {
        target: root.log

        function onCountChanged() {
            list.followEnd();
        }
    }
    NumberAnimation {
        id: slide
        target: list
        property: "contentY"
        duration: 250
        easing.type: Easing.InOutQuad
        // On the way lines came into view whose heights were guessed before.
        onFinished: list.goToEnd()
    }

    ListView {
        id: list
        objectName: "logList"

        property bool followsEnd: true

        anchors {
            fill: parent
            leftMargin: 16
            rightMargin: 16
            bottomMargin: 8
        }
        model: root.log
        clip: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: count > 0
        keyNavigationEnabled: false
        currentIndex: -1  // no line, the list itself has the focus
        Accessible.role: Accessible.List
        Accessible.name: qsTr("ACTIVITY LOG")
        Keys.onUpPressed: scrollTo(contentY - 40)
        Keys.onDownPressed: scrollTo(contentY + 40)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_PageUp)
                scrollTo(contentY - height);
            else if (event.key === Qt.Key_PageDown)
                scrollTo(contentY + height);
            else if (event.key === Qt.Key_Home)
                scrollTo(originY);
            else if (event.key === Qt.Key_End)
                scrollTo(originY + contentHeight);
            else
                return;
            event.accepted = true;
        }

        function goToEnd() {
            // Where the end is depends on the new lines' heights.
            forceLayout();
            positionViewAtEnd();
            forceLayout();
        }

        // Slides to the end, by a page at most: no line is laid out that is only passed by.
        function followEnd() {
            slide.stop();
            if (!followsEnd || count === 0)
                return;
            const before = contentY;
            goToEnd();
            const end = contentY;
            contentY = Math.min(end, Math.max(before, end - height));
            slide.to = end;
            slide.start();
        }

        function scrollTo(y: real) {
            slide.stop();
            contentY = Math.max(originY, Math.min(y, originY + contentHeight - height));
            followsEnd = atYEnd;
        }

        onHeightChanged: {
            slide.stop();
            if (followsEnd && count > 0)
                goToEnd();
        }
        // By the user: what comes and goes by itself moves the content as well.
        onContentYChanged: {
            if (!moving && !track.isDragged)
                return;
            slide.stop();
            followsEnd = atYEnd;
        }

        delegate: Item {
            id: line

            required property string line
            required property color colour
            required property color barColour

            width: ListView.view.width
            implicitHeight: text.implicitHeight + 2

            Rectangle {
                width: 2
                height: parent.height
                color: line.barColour
            }
            TextEdit {
                id: text
                objectName: "logText"
                anchors {
                    left: parent.left
                    right: parent.right
                    leftMargin: 8
                    rightMargin: 8
                }
                text: line.line
                color: line.colour
                font.family: Theme.fontFamily
                font.pixelSize: 11
                textFormat: TextEdit.PlainText
                wrapMode: TextEdit.Wrap
                readOnly: true
                selectByMouse: true
                selectionColor: Theme.yellow
                selectedTextColor: Theme.windowBackground
                activeFocusOnTab: false
                Accessible.role: Accessible.ListItem
                Accessible.name: line.line
            }
        }
    }
    BodyText {
        anchors.centerIn: parent
        visible: list.count === 0
        text: qsTr("Run Dry Run or Sort to see activity here")
        colour: Theme.tertiaryText
    }
    ScrollTrack {
        id: track
        anchors {
            top: parent.top
            bottom: parent.bottom
            right: parent.right
            rightMargin: 4
            bottomMargin: 8
        }
        flickable: list
    }
    FocusRing {
        target: list
        gap: 1
        shown: list.activeFocus
    }
}
