import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// A figure of the disk: a ring that grows when it appears, and its texts.
ContinuousRectangle {
    id: root

    required property string title
    required property string subtitle
    required property double share
    required property string valueText
    required property string label
    required property color metricColor
    /// The object name of the ring, for tests.
    property string ringName

    implicitHeight: row.implicitHeight + 24
    radius: 12
    color: TidloTheme.controlSurface

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("%1: %2").arg(root.title).arg(root.valueText)
    Accessible.description: root.subtitle

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        spacing: 14

        GrowingRing {
            objectName: root.ringName
            Layout.preferredWidth: 66
            Layout.preferredHeight: 66
            lineWidth: 7
            trackColor: TidloTheme.faded(TidloTheme.systemGray, 0.18)
            color: root.metricColor
            value: root.share
            valueText: root.valueText
            valueFont: TidloType.rounded(18, Font.Bold, TidloType.scale)
            label: root.label
            labelFont: TidloType.system(8.5, Font.Bold, TidloType.scale)
        }
        Column {
            Layout.fillWidth: true
            spacing: 4

            TidloText {
                text: root.title
                font: TidloType.bodyStrong
                Accessible.ignored: true
            }
            TidloText {
                width: parent.width
                text: root.subtitle
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
                maximumLineCount: 2
                Accessible.ignored: true
            }
            TidloText {
                text: root.valueText
                font: TidloType.system(17, Font.Bold, TidloType.scale)
                color: root.metricColor
                Accessible.ignored: true
            }
        }
    }
}
