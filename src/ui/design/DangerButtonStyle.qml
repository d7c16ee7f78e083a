import QtQuick
import Tidlo.Design

/// For actions that cannot easily be undone.
LabelledButton {
    id: root

    labelFont: TidloType.system(13, Font.DemiBold, TidloType.scale)
    labelColor: root.enabled ? TidloTheme.red : TidloTheme.faded(TidloTheme.mutedText, 0.55)
    fill: TidloTheme.faded(TidloTheme.red, root.enabled ? (root.pressed ? 0.16 : 0.1) : 0.04)
    borderColor: TidloTheme.solid(TidloTheme.red, root.enabled ? 0.35 : 0.12)
    borderWidth: 1
    sidePadding: 24
}
