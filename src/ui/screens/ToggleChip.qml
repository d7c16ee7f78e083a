import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// A chip that can be on or off.
PlainButton {
    id: root

    required property bool selected

    cornerRadius: height / 2
    checkable: true
    checked: root.selected

    contentItem: ChipFace {
        text: root.text
        selected: root.selected
    }
}
