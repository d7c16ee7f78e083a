import QtQuick
import Tidlo.Design

/// What is written on a chip.
TidloText {
    required property bool selected

    font: TidloType.smallStrong
    color: selected ? TidloTheme.blue : TidloTheme.secondaryLabel
    Accessible.ignored: true
}
