import QtQuick
import Tidlo.Design

/// The quiet alternative.
LabelledButton {
    id: root

    labelFont: TidloType.system(13, Font.DemiBold, TidloType.scale)
    labelColor: TidloTheme.faded(TidloTheme.mutedText, root.enabled ? 1 : 0.44)
    fill: TidloTheme.faded(TidloTheme.controlSurface, root.enabled ? (root.pressed ? 0.7 : 1) : 0.42)
    borderColor: TidloTheme.solid(TidloTheme.controlBorder, root.enabled ? 1 : 0.5)
    borderWidth: 1
    sidePadding: 24
}
