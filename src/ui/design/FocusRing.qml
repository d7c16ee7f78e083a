import QtQuick
import Tidlo.Design

/// Shows which control the keyboard reaches; it belongs around that control, as a child that fills it.
ContinuousRectangle {
    id: root

    /// The control's own corners.
    property double cornerRadius: 9

    anchors.fill: parent
    anchors.margins: -3
    radius: root.cornerRadius + 3
    borderColor: TidloTheme.blue
    borderWidth: 2
}
