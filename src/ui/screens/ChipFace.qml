import QtQuick
import Tidlo.Design

/// The look of a chip: a word on a pill.
Rectangle {
    id: root

    required property string text
    required property bool selected

    implicitWidth: words.implicitWidth + 24
    implicitHeight: words.implicitHeight + 12
    radius: height / 2
    color: root.selected ? TidloTheme.faded(TidloTheme.blue, 0.16) : TidloTheme.faded(TidloTheme.systemGray, 0.12)
    border.width: 1
    border.color: root.selected ? TidloTheme.solid(TidloTheme.blue, 0.45) : TidloTheme.solid(TidloTheme.systemGray, 0.2)

    TidloText {
        id: words

        anchors.centerIn: parent
        text: root.text
        font: TidloType.smallStrong
        color: root.selected ? TidloTheme.blue : TidloTheme.secondaryLabel
        Accessible.ignored: true
    }
}
