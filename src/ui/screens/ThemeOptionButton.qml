import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// One of the themes to choose from.
PlainRadioButton {
    id: root

    required property string title
    required property string symbol
    /// The preference to store when it is chosen.
    required property string value
    /// The preference that is stored now.
    required property string currentTheme
    readonly property bool selected: root.currentTheme === root.value
    /// The same as a number, animated from 0 to 1 and back.
    property double chosen: root.selected ? 1 : 0

    Behavior on chosen {
        NumberAnimation { duration: Motion.theme.duration; easing: Motion.theme.easing }
    }

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
            color: TidloTheme.blended(TidloTheme.mutedText, TidloTheme.blue, root.chosen)
        }
        TidloText {
            text: root.title
            font: TidloType.bodyStrong
            color: TidloTheme.blended(TidloTheme.secondaryLabel, TidloTheme.primaryText, root.chosen)
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
    }

    background: ContinuousRectangle {
        radius: 10
        color: TidloTheme.blended(TidloTheme.controlSurface, TidloTheme.faded(TidloTheme.blue, 0.16), root.chosen)
        borderColor: TidloTheme.blended(TidloTheme.controlBorder, TidloTheme.blue, root.chosen)
        borderWidth: 1 + root.chosen
    }
}
