import QtQuick
import Tidlo.Design

/// Shows the theme; a press changes to the next one.
PlainButton {
    id: root

    text: qsTr("Theme: %1").arg(TidloTheme.label)
    leftPadding: 11
    rightPadding: 11
    topPadding: 6
    bottomPadding: 6
    cornerRadius: height / 2

    contentItem: Row {
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: TidloTheme.symbol
            size: 13
            weight: Font.Bold
            color: TidloTheme.blue
        }
        TidloText {
            anchors.verticalCenter: parent.verticalCenter
            text: TidloTheme.label
            font: TidloType.smallStrong
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: height / 2
        color: TidloTheme.controlSurface
        border.width: 1
        border.color: TidloTheme.controlBorder
    }

    Tip {
        text: qsTr("Switch Theme (Dark / Light / System)")
        visible: root.hovered
    }
}
