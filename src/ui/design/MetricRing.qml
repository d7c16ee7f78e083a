import QtQuick
import Tidlo.Design

/// A ring gauge that stands alone. It grows to its value once, when it appears; later changes show at once.
Column {
    id: root

    /// A fraction from 0 to 1.
    required property double share
    /// The same fraction as text.
    required property string valueText
    required property string label
    property string caption: ""
    required property color color

    spacing: 8

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("%1 %2").arg(root.valueText).arg(root.label)

    GrowingRing {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 72
        height: 72
        lineWidth: 8
        trackColor: TidloTheme.faded(TidloTheme.systemGray, TidloTheme.mixed(TidloTheme.darkness, 0.2, 0.15))
        color: root.color
        value: root.share
        valueText: root.valueText
        valueFont: TidloType.rounded(20, Font.Bold, TidloType.scale)
        label: root.label
        labelFont: TidloType.system(9, Font.Bold, TidloType.scale)
    }

    TidloText {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: root.caption !== ""
        text: root.caption
        font: TidloType.tiny
        color: TidloTheme.mutedText
    }
}
