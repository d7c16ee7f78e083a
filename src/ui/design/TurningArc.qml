import QtQuick
import Tidlo.Design

/// An arc that goes round for as long as it is seen: work is under way. It takes thirty steps a second, since the work
/// waits for each frame that is drawn meanwhile. Where motion is reduced it stands.
Gauge {
    id: root

    property bool turns: true
    /// In degrees.
    property double angle

    rotation: Motion.isReduced ? 0 : 10 * Math.round(root.angle / 10)

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
