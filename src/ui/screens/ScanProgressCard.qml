import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// The progress of the scan, as a ring.
CardModifier {
    id: root

    /// A fraction from 0 to 1.
    required property double progress
    required property string percentText
    required property string label
    /// Whether the short arc around the ring has begun to turn.
    property bool rotate: false

    implicitWidth: 420
    implicitHeight: column.implicitHeight + 64

    activeFocusOnTab: true

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("%1 complete").arg(root.percentText)
    Accessible.description: root.label

    Component.onCompleted: root.rotate = true

    FocusRing {
        visible: root.KeyFocus.isVisual && root.activeFocus
        cornerRadius: root.radius
    }

    Column {
        id: column

        anchors.centerIn: parent
        width: parent.width - 48
        spacing: 14

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 276
            height: 276

            RingGauge {
                objectName: "ring"
                anchors.centerIn: parent
                width: 236
                height: 236
                lineWidth: 18
                trackColor: TidloTheme.faded(TidloTheme.systemGray, TidloTheme.mixed(TidloTheme.darkness, 0.18, 0.16))
                color: TidloTheme.green
                bottomColor: TidloTheme.blue
                value: root.progress
                shortest: 0.035
            }
            TurningArc {
                objectName: "spinner"
                anchors.fill: parent
                anchors.margins: -2
                from: 0.05
                to: 0.16
                lineWidth: 4
                color: TidloTheme.green
                opacity: 0.7
                turns: root.rotate
            }
            Column {
                anchors.centerIn: parent

                TidloText {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: root.percentText
                    font: TidloType.rounded(44, Font.Bold, TidloType.scale)
                    Accessible.ignored: true
                }
                TidloText {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("complete")
                    font: TidloType.small
                    color: TidloTheme.mutedText
                    Accessible.ignored: true
                }
            }
        }
        TidloText {
            width: parent.width
            height: topPadding + 2 * Math.ceil(lines.height) // Room for two lines, so that nothing moves when the text
                                                             // needs both.
            topPadding: 6
            text: root.label
            font: TidloType.system(20, Font.Bold, TidloType.scale)
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.Wrap
            Accessible.ignored: true

            FontMetrics {
                id: lines

                font: TidloType.system(20, Font.Bold, TidloType.scale)
            }
        }
        TidloText {
            width: parent.width
            text: qsTr("Classifying safe, rebuildable, review, and never-touch items.")
            font: TidloType.small
            color: TidloTheme.mutedText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 10

            ScanMetricPill { caption: qsTr("Mode"); value: qsTr("Metadata only") }
            ScanMetricPill { caption: qsTr("Safety"); value: qsTr("Trash first") }
        }
    }
}
