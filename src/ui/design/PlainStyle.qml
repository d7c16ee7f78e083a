import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// Common behaviour of all buttons: the pointer's shape, and a focus ring for the keyboard. Put it into a button as a
/// child. It also holds the opacity for buttons without a surface.
Item {
    id: root

    required property T.AbstractButton button
    /// The corner radius of the button.
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
