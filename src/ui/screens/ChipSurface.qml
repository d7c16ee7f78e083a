import QtQuick
import Tidlo.Design

/// The pill that is a chip.
Rectangle {
    required property bool selected

    radius: height / 2
    color: selected ? TidloTheme.faded(TidloTheme.blue, 0.16) : TidloTheme.faded(TidloTheme.systemGray, 0.12)
    border.width: 1
    border.color: selected ? TidloTheme.faded(TidloTheme.blue, 0.45) : TidloTheme.faded(TidloTheme.systemGray, 0.2)
}
