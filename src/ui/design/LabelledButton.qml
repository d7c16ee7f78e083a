import QtQuick
import Tidlo.Design

/// What the three button styles share: a text in the middle of a surface with corners of 9 points.
PlainButton {
    id: root

    required property font labelFont
    required property color labelColor
    required property color fill
    property color borderColor: "transparent"
    property double borderWidth: 0
    required property double sidePadding

    leftPadding: root.sidePadding
    rightPadding: root.sidePadding
    topPadding: 13
    bottomPadding: 13
    opacity: 1

    contentItem: TidloText {
        text: root.text
        font: root.labelFont
        color: root.labelColor
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: ContinuousRectangle {
        radius: 9
        color: root.fill
        borderColor: root.borderColor
        borderWidth: root.borderWidth
    }
}
