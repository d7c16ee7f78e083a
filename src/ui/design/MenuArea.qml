import QtQuick

/// Covers its whole parent: a right click in it asks for a menu. Not a TapHandler, since on Wayland Qt takes every
/// mouse for a touchpad, and handlers do not tell the buttons of a touchpad apart.
MouseArea {
    id: root

    /// The position in the area.
    signal asked(double x, double y)

    anchors.fill: parent
    acceptedButtons: Qt.RightButton
    onClicked: (mouse) => root.asked(mouse.x, mouse.y)
}
