import QtQuick
import Tidlo.Design

/// An arc that turns while it can be seen: work is under way. It moves one step with each frame at sixty frames a
/// second, and the picture of each step is drawn once. Where motion is reduced it stands still.
Gauge {
    id: root

    property bool turns: true
    /// In degrees.
    property double angle

    turnedBy: Motion.isReduced ? 0 : 5 * Math.round(root.angle / 5) % 360

    // Not an Animator: where nothing waits for the display, as in software, that draws the next frame as soon as one is
    // done.
    NumberAnimation on angle {
        objectName: "turn"
        running: root.turns && !Motion.isReduced && root.visible && root.Sight.isSeen
        from: 0
        to: 360
        duration: 1200
        loops: Animation.Infinite
    }
}
