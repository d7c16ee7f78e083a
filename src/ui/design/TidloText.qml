import QtQuick
import Tidlo.Design

/// A text as it stands: whatever a name holds, nothing in it is taken for markup.
Text {
    color: TidloTheme.primaryText
    font: TidloType.body
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
