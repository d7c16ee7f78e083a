import QtQuick
import Tidlo.Design

/// The round button that starts a scan. Its outer ring pulses while it can be seen.
PlainButton {
    id: root

    /// Whether the ring has begun to pulse.
    property bool pulse: false
    /// From 0, small and opaque, to 1, large and faint.
    property double breath
    /// The same, rounded to steps that move the ring's edge by less than a quarter of a point: no frame is drawn
    /// between them.
    readonly property double drawnBreath: Motion.isReduced ? 0 : Math.round(root.breath * 40) / 40

    text: qsTr("Scan")
    implicitWidth: 240
    implicitHeight: 240
    cornerRadius: 120

    SequentialAnimation on breath {
        objectName: "breathing"
        running: root.pulse && !Motion.isReduced && root.visible && root.Sight.isSeen
        loops: Animation.Infinite

        NumberAnimation { from: 0; to: 1; duration: 1400; easing: Motion.easeInOut }
        NumberAnimation { from: 1; to: 0; duration: 1400; easing: Motion.easeInOut }
    }

    Component.onCompleted: root.pulse = true

    contentItem: Item {
        Gauge {
            objectName: "halo"
            anchors.centerIn: parent
            width: 250
            height: 250
            lineWidth: 10
            color: TidloTheme.controlBorder
            scale: 0.96 + 0.08 * root.drawnBreath
            opacity: 1 - 0.42 * root.drawnBreath
        }
        Gauge {
            anchors.centerIn: parent
            width: 212
            height: 212
            lineWidth: 8
            roundCaps: true
            color: TidloTheme.green
            bottomColor: TidloTheme.blue
        }
        Rectangle {
            anchors.centerIn: parent
            width: 148
            height: 148
            radius: 74
            color: TidloTheme.faded(TidloTheme.green, 0.12)
        }
        TidloText {
            anchors.centerIn: parent
            text: qsTr("CLICK TO\nSCAN")
            font: TidloType.system(17, Font.Bold, TidloType.scale)
            color: TidloTheme.mutedText
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
