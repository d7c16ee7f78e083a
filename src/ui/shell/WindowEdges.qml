pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Shell

/// The edges and corners that resize a window without a frame.
Item {
    id: root

    /// The scale at which the content of the window is drawn.
    required property double shownScale
    readonly property double thickness: 5 * root.shownScale
    readonly property double corner: 12 * root.shownScale

    component Grip: WindowHandle {
        id: grip

        required property int cursor

        HoverHandler {
            cursorShape: grip.cursor
        }
    }

    Grip {
        edges: Qt.TopEdge
        cursor: Qt.SizeVerCursor
        width: parent.width
        height: root.thickness
    }
    Grip {
        edges: Qt.BottomEdge
        cursor: Qt.SizeVerCursor
        anchors.bottom: parent.bottom
        width: parent.width
        height: root.thickness
    }
    Grip {
        edges: Qt.LeftEdge
        cursor: Qt.SizeHorCursor
        width: root.thickness
        height: parent.height
    }
    Grip {
        edges: Qt.RightEdge
        cursor: Qt.SizeHorCursor
        anchors.right: parent.right
        width: root.thickness
        height: parent.height
    }
    Grip {
        edges: Qt.TopEdge | Qt.LeftEdge
        cursor: Qt.SizeFDiagCursor
        width: root.corner
        height: root.corner
    }
    Grip {
        edges: Qt.TopEdge | Qt.RightEdge
        cursor: Qt.SizeBDiagCursor
        anchors.right: parent.right
        width: root.corner
        height: root.corner
    }
    Grip {
        edges: Qt.BottomEdge | Qt.LeftEdge
        cursor: Qt.SizeBDiagCursor
        anchors.bottom: parent.bottom
        width: root.corner
        height: root.corner
    }
    Grip {
        edges: Qt.BottomEdge | Qt.RightEdge
        cursor: Qt.SizeFDiagCursor
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: root.corner
        height: root.corner
    }
}
