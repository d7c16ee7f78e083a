import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// A short help text that appears when the pointer rests on an item.
T.ToolTip {
    id: root

    x: 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: 8
    leftPadding: 8
    rightPadding: 8
    topPadding: 5
    bottomPadding: 5
    delay: 700
    scale: Fit.scale
    transformOrigin: Item.TopLeft

    contentItem: TidloText {
        text: root.text
        font: TidloType.subheadline
    }

    background: ContinuousRectangle {
        radius: 6
        color: TidloTheme.cardSurface
        borderColor: TidloTheme.controlBorder
        borderWidth: 1
    }
}
