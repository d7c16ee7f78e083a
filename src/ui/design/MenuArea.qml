import QtQuick

/// The whole of its parent: a click of the right button in it asks for a menu. No TapHandler, since Qt takes each mouse on
/// Wayland for a touchpad, where handlers do not tell buttons apart.
MouseArea {
    id: root

    /// At a place in it.
    signal asked(double x, double y)

    anchors.fill: parent
    acceptedButtons: Qt.RightButton
    onClicked: (mouse) => root.asked(mouse.x, mouse.y)
}
