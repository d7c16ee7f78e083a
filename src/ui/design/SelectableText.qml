import QtQuick
import Tidlo.Design

/// A text that can be selected and copied, but not changed. Markup in it is not interpreted.
TextEdit {
    id: root

    /// Read by assistive technology before the text itself.
    required property string name
    /// Extra points between two lines.
    property double spacing: 0

    readOnly: true
    selectByMouse: true
    selectByKeyboard: true
    activeFocusOnTab: true
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    selectionColor: TidloTheme.selection
    selectedTextColor: TidloTheme.selectedText

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(root.name).arg(root.text)
    Accessible.readOnly: true

    LineSpacing {
        document: root.textDocument
        spacing: root.spacing
    }

    FocusRing {
        visible: root.KeyFocus.isVisual && root.activeFocus
        cornerRadius: 4
    }
}
