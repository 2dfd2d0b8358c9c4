import QtQuick
import Vellomar

// A box with a dashed edge.
Canvas {
    id: root

    property color colour: Theme.faintText
    property color fill: "transparent"
    property int radius: 6

    onColourChanged: requestPaint()
    onFillChanged: requestPaint()
    onPaint: {
        const context = getContext("2d");
        context.reset();
        context.roundedRect(1, 1, width - 2, height - 2, radius, radius);
        context.fillStyle = fill;
        context.fill();
        context.strokeStyle = colour;
        context.lineWidth = 1.5;
        context.setLineDash([4, 3]);
        context.stroke();
    }
}
