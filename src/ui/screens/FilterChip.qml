import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// One of the filters of the results.
PlainRadioButton {
    id: root

    required property bool selected

    cornerRadius: height / 2
    checked: root.selected

    contentItem: ChipFace {
        text: root.text
        selected: root.selected
    }
}
