import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// A chip for something that is so or is not.
PlainButton {
    id: root

    required property bool selected

    leftPadding: 12
    rightPadding: 12
    topPadding: 6
    bottomPadding: 6
    cornerRadius: height / 2
    checkable: true
    checked: root.selected

    contentItem: ChipText {
        text: root.text
        selected: root.selected
    }
    background: ChipSurface {
        selected: root.selected
    }
}
