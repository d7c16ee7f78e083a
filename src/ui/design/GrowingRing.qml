import QtQuick
import Tidlo.Design

/// A ring gauge with its figure in the middle, growing once from a stub to its value, shortly after it appears.
RingGauge {
    id: root

    required property string valueText
    required property font valueFont
    required property string label
    required property font labelFont
    /// Whether it has begun to grow.
    property bool animate: false

    QtObject {
        id: growth

        // How much of the value is shown, from 0 to 1; stays 1 after the animation.
        property double share: 0

        Behavior on share {
            SequentialAnimation {
                PauseAnimation { duration: Motion.gaugeDelay }
                NumberAnimation {
                    duration: Motion.gauge.duration
                    easing: Motion.gauge.easing
                }
            }
        }
    }

    shown: root.shortest + (Math.min(Math.max(root.value, root.shortest), 1) - root.shortest) * growth.share

    Component.onCompleted: {
        root.animate = true;
        growth.share = 1;
    }

    Column {
        anchors.centerIn: parent

        TidloText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.valueText
            font: root.valueFont
            Accessible.ignored: true
        }
        TidloText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.label
            font: root.labelFont
            color: TidloTheme.mutedText
            Accessible.ignored: true
        }
    }
}
