import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// One of the filters of the results.
PlainRadioButton {
    id: root

    required property bool selected

    leftPadding: 12
    rightPadding: 12
    topPadding: 6
    bottomPadding: 6
    cornerRadius: height / 2
    checked: root.selected

    contentItem: ChipText {
        text: root.text
        selected: root.selected
    }
    background: ChipSurface {
        selected: root.selected
    }
}
