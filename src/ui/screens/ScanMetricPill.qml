import QtQuick
import Tidlo.Design

/// A small tile of two lines: a caption and a value.
ContinuousRectangle {
    id: root

    required property string caption
    required property string value

    implicitWidth: column.implicitWidth + 28
    implicitHeight: column.implicitHeight + 18
    radius: 9
    color: TidloTheme.controlSurface

    Column {
        id: column

        anchors.centerIn: parent
        spacing: 2

        TidloText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.caption.toUpperCase()
            font: TidloType.tiny
            color: TidloTheme.mutedText
        }
        TidloText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.value
            font: TidloType.smallStrong
        }
    }
}
