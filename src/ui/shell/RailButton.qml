import QtQuick
import Tidlo.Design

/// A button of the rail.
PlainRadioButton {
    id: root

    required property string symbol
    required property bool active
    readonly property color symbolColor: root.active ? TidloTheme.blue : TidloTheme.railSymbol

    implicitWidth: 36
    implicitHeight: 36
    checked: root.active

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 16
            weight: Font.DemiBold
            color: root.symbolColor
        }
    }

    background: ContinuousRectangle {
        radius: 9
        color: root.active ? TidloTheme.faded(TidloTheme.blue, 0.18) : "transparent"
    }

    Tip {
        x: root.width + 14
        y: (root.height - height) / 2
        text: root.text
        visible: root.hovered
    }
}
