import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// A search field.
T.TextField {
    id: root

    implicitWidth: 220
    implicitHeight: contentHeight + topPadding + bottomPadding
    leftPadding: 32
    rightPadding: 10
    topPadding: 7
    bottomPadding: 7
    font: TidloType.system(13, Font.Normal, TidloType.scale)
    color: TidloTheme.primaryText
    selectionColor: TidloTheme.selection
    selectedTextColor: TidloTheme.selectedText
    placeholderTextColor: TidloTheme.mutedText
    selectByMouse: true

    Accessible.role: Accessible.EditableText
    Accessible.name: root.placeholderText

    background: ContinuousRectangle {
        radius: 8
        color: TidloTheme.controlSurface
        borderColor: root.activeFocus ? TidloTheme.blue : TidloTheme.controlBorder
        borderWidth: root.activeFocus ? 2 : 1
    }

    Symbol {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: 13
        weight: Font.DemiBold
        color: TidloTheme.mutedText
    }
    TidloText {
        x: root.leftPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: root.text === "" && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: root.placeholderTextColor
        Accessible.ignored: true
    }
}
