import QtQuick
import Tidlo.Design

/// An arc that goes round for as long as it is seen: work is under way.
Gauge {
    id: root

    property bool turns: true

    RotationAnimator on rotation {
        objectName: "turn"
        running: root.turns && root.visible && root.Sight.isSeen
        from: 0
        to: 360
        duration: 1200
        loops: Animation.Infinite
    }
}
