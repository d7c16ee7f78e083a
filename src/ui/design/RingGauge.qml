import QtQuick
import Tidlo.Design

/// A ring gauge: a track, and on it a line that grows clockwise from twelve o'clock. The circle is as large as the item;
/// its line reaches half its width beyond.
Item {
    id: root

    /// A fraction; the line never shows less than shortest of it, nor more than the whole circle.
    required property double value
    property double shortest: 0.02
    required property double lineWidth
    required property color trackColor
    required property color color
    /// What is shown of the circle, if not the value at once.
    property double shown: Math.min(Math.max(root.value, root.shortest), 1)
    /// At the other end of a gradient; as the color if there is none.
    property color bottomColor: root.color

    Gauge {
        anchors.fill: parent
        anchors.margins: -root.lineWidth / 2
        lineWidth: root.lineWidth
        color: root.trackColor
    }

    Gauge {
        anchors.fill: parent
        anchors.margins: -root.lineWidth / 2
        rotation: -90
        lineWidth: root.lineWidth
        roundCaps: true
        color: root.color
        bottomColor: root.bottomColor
        to: root.shown
    }
}
