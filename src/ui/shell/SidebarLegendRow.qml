import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Shell

/// One line of the legend: a category, its colour and its size.
RowLayout {
    id: root

    required property categoryFigure figure

    spacing: 8

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(root.figure.title).arg(root.figure.bytesText)

    Rectangle {
        implicitWidth: 8
        implicitHeight: 8
        radius: 4
        color: TidloTheme.hues[root.figure.hue]
    }
    TidloText {
        Layout.fillWidth: true
        text: root.figure.title
        font: TidloType.sidebar
        Accessible.ignored: true
    }
    TidloText {
        text: root.figure.bytesText
        font: TidloType.sidebarStrong
        Accessible.ignored: true
    }
}
