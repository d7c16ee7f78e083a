import QtQuick
import Tidlo.Design

/// One of the filters of the results.
PlainButton {
    id: root

    required property bool selected

    leftPadding: 12
    rightPadding: 12
    topPadding: 6
    bottomPadding: 6
    cornerRadius: height / 2

    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: root.selected

    contentItem: TidloText {
        text: root.text
        font: TidloType.smallStrong
        color: root.selected ? TidloTheme.blue : TidloTheme.secondaryLabel
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: height / 2
        color: root.selected ? TidloTheme.faded(TidloTheme.blue, 0.16)
                             : TidloTheme.faded(TidloTheme.systemGray, 0.12)
        border.width: 1
        border.color: root.selected ? TidloTheme.faded(TidloTheme.blue, 0.45)
                                    : TidloTheme.faded(TidloTheme.systemGray, 0.2)
    }
}
