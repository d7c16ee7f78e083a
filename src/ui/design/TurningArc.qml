import QtQuick
import Tidlo.Design

/// An arc that goes round for as long as it is seen: work is under way. It takes a step with each frame where
/// there are sixty a second, and each place that it comes by is drawn once. Where motion is reduced it stands.
Gauge {
    id: root

    property bool turns: true
    /// In degrees.
    property double angle

    turnedBy: Motion.isReduced ? 0 : 5 * Math.round(root.angle / 5) % 360

    // No Animator: where nothing waits for the display, as in software, it has a frame drawn whenever the last is done.
    NumberAnimation on angle {
        objectName: "turn"
        running: root.turns && !Motion.isReduced && root.visible && root.Sight.isSeen
        from: 0
        to: 360
        duration: 1200
        loops: Animation.Infinite
    }
}
