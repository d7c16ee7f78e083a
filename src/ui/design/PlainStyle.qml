import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// What all buttons share beneath their looks: the pointer's shape, and a ring for the keyboard. It belongs into one, as
/// a child. Those without looks of their own are as opaque as it says.
Item {
    id: root

    required property T.AbstractButton button
    /// The button's own corners.
    required property double cornerRadius
    readonly property double opacityOfButton: root.button.down ? 0.75 : root.button.hovered ? 0.88 : 1

    anchors.fill: parent

    HoverHandler {
        cursorShape: root.button.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
    }

    FocusRing {
        visible: root.button.visualFocus
        cornerRadius: root.cornerRadius
    }
}
