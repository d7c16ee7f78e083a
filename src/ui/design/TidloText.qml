import QtQuick
import Tidlo.Design

/// A plain text: markup in a name is not interpreted.
Text {
    color: TidloTheme.primaryText
    font: TidloType.body
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
