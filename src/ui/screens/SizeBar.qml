import QtQuick
import Tidlo.Design

/// The size of something, relative to the largest of its kind.
Item {
    id: root

    /// A fraction; from 1 on the bar is full.
    required property double share
    required property color barColor

    implicitHeight: 5

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: TidloTheme.faded(TidloTheme.systemGray, TidloTheme.mixed(TidloTheme.darkness, 0.18, 0.14))
    }
    Rectangle {
        objectName: "bar"
        width: Math.max(5, root.share >= 1 ? root.width : root.width * root.share)
        height: parent.height
        radius: height / 2
        color: root.barColor
    }
}
