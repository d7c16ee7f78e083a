import QtQuick
import Tidlo.Design

/// A promise: a symbol and a few words.
ContinuousRectangle {
    id: root

    required property string symbol
    required property string title

    implicitWidth: row.implicitWidth + 24
    implicitHeight: row.implicitHeight + 14
    radius: 7
    color: TidloTheme.controlSurface

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 7

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: 12
            weight: Font.Bold
            color: TidloTheme.green
        }
        TidloText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            font: TidloType.smallStrong
            color: TidloTheme.mutedText
        }
    }
}
