import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// A line of a context menu; hidden while it is disabled.
T.MenuItem {
    id: root

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    height: root.enabled ? implicitHeight : 0
    visible: root.enabled
    leftPadding: 10
    rightPadding: 10
    topPadding: 6
    bottomPadding: 6

    contentItem: TidloText {
        text: root.text
        font: TidloType.system(13, Font.Normal, TidloType.scale)
        Accessible.ignored: true
    }

    background: ContinuousRectangle {
        radius: 6
        color: root.highlighted ? TidloTheme.faded(TidloTheme.blue, 0.3) : "transparent"
    }
}
