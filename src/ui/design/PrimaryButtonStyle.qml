import QtQuick
import Tidlo.Design

/// The filled call to action.
LabelledButton {
    id: root

    labelFont: TidloType.headline
    labelColor: root.enabled ? "black" : TidloTheme.faded(TidloTheme.mutedText, 0.56)
    fill: root.enabled ? TidloTheme.faded(TidloTheme.green, root.pressed ? 0.75 : 1) : TidloTheme.controlSurface
    sidePadding: 28
    scale: root.pressed && root.enabled ? 0.98 : 1
}
