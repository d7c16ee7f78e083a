import QtQuick
import Tidlo.Design

/// A small button that is a symbol; a tip and assistive technology give its text.
PlainButton {
    id: root

    required property string symbol

    implicitWidth: 28
    implicitHeight: 28
    cornerRadius: 7

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 14
            weight: Font.DemiBold
            color: root.hovered || root.visualFocus ? TidloTheme.primaryText : TidloTheme.mutedText
        }
    }

    background: ContinuousRectangle {
        radius: 7
        color: root.hovered ? TidloTheme.faded(TidloTheme.systemGray, 0.18) : "transparent"
    }

    Tip {
        text: root.text
        visible: root.hovered
    }
}
