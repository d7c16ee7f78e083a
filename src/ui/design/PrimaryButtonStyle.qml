import QtQuick
import Tidlo.Design

/// The filled call to action.
LabelledButton {
    id: root

    labelFont: TidloType.headline
    labelColor: root.enabled ? TidloTheme.accentLabel : TidloTheme.faded(TidloTheme.mutedText, 0.56)
    fill: root.enabled ? root.pressed ? TidloTheme.solid(TidloTheme.green, 0.75) : TidloTheme.green : TidloTheme.controlSurface
    sidePadding: 28
    scale: root.pressed && root.enabled ? 0.98 : 1
}
