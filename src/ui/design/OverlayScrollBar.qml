import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// A scroll bar that lies over the content; faint unless the content moves or the pointer is on it.
T.ScrollBar {
    id: root

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    visible: root.size < 1
    minimumSize: 0.06

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: TidloTheme.faded(TidloTheme.systemGray, root.pressed ? 0.9 : 0.6)
        opacity: root.active || root.hovered ? 1 : 0.35

        Behavior on opacity {
            NumberAnimation { duration: Math.min(200, Motion.longestFade) }
        }
    }
}
