import QtQuick
import Tidlo.Design

/// A ring gauge: a track, and on it a line that grows clockwise from twelve o'clock. The circle is as large as the
/// item; half of the line's width lies outside of it.
Item {
    id: root

    /// A fraction; the line shows at least the fraction shortest and at most the whole circle.
    required property double value
    property double shortest: 0.02
    required property double lineWidth
    required property color trackColor
    required property color color
    /// The fraction that is drawn; bind it to something else to animate it.
    property double shown: Math.min(Math.max(root.value, root.shortest), 1)
    /// The other end of a gradient; without a gradient the same as color.
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
