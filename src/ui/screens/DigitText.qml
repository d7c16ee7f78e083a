pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design

/// A figure whose digits are all equally wide, so that nothing beside them moves while it counts.
Row {
    id: root

    required property string text
    property font font: TidloType.bodyStrong
    property color color: TidloTheme.primaryText

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    TextMetrics {
        id: widest

        font: root.font
        text: "0"
    }

    Repeater {
        model: root.text.length

        TidloText {
            required property int index
            readonly property string character: root.text.charAt(index)

            width: character >= "0" && character <= "9" ? widest.advanceWidth : implicitWidth
            horizontalAlignment: Text.AlignHCenter
            text: character
            font: root.font
            color: root.color
            Accessible.ignored: true
        }
    }
}
