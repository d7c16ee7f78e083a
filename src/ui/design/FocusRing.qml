import QtQuick
import Tidlo.Design

/// Shows which control has the keyboard focus. Use it as a child that fills the control.
Rectangle {
    id: root

    /// The control's own corners.
    property double cornerRadius: 9

    anchors.fill: parent
    anchors.margins: -3
    radius: root.cornerRadius + 3
    color: "transparent"
    border.color: TidloTheme.blue
    border.width: 2
    antialiasing: true
}
