import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// One of the themes to choose from.
PlainRadioButton {
    id: root

    required property string title
    required property string symbol
    /// What is stored when it is chosen.
    required property string value
    /// What is stored now.
    required property string currentTheme
    readonly property bool selected: root.currentTheme === root.value

    leftPadding: 14
    rightPadding: 14
    topPadding: 12
    bottomPadding: 12
    cornerRadius: 10
    text: root.title
    checked: root.selected

    contentItem: RowLayout {
        spacing: 8

        Item {
            Layout.fillWidth: true
        }
        Symbol {
            name: root.symbol
            size: 14
            weight: Font.Bold
            color: root.selected ? TidloTheme.blue : TidloTheme.mutedText
        }
        TidloText {
            text: root.title
            font: TidloType.bodyStrong
            color: root.selected ? TidloTheme.primaryText : TidloTheme.secondaryLabel
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
    }

    background: ContinuousRectangle {
        radius: 10
        color: root.selected ? TidloTheme.faded(TidloTheme.blue, 0.16) : TidloTheme.controlSurface
        borderColor: root.selected ? TidloTheme.blue : TidloTheme.controlBorder
        borderWidth: root.selected ? 2 : 1

        Behavior on color {
            ColorAnimation { duration: Motion.theme.duration; easing: Motion.theme.easing }
        }
        Behavior on borderWidth {
            NumberAnimation { duration: Motion.theme.duration; easing: Motion.theme.easing }
        }
    }
}
