import QtQuick
import Tidlo.Design

/// A short status word on a capsule, in the colour of that status.
Rectangle {
    id: root

    required property string text
    required property color pillColor

    implicitWidth: label.implicitWidth + 20
    implicitHeight: label.implicitHeight + 12
    radius: height / 2
    color: TidloTheme.faded(root.pillColor, 0.13)

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    TidloText {
        id: label

        anchors.centerIn: parent
        text: root.text
        font: TidloType.smallStrong
        color: root.pillColor
        Accessible.ignored: true
    }
}
