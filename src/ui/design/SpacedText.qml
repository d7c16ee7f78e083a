import QtQuick
import Tidlo.Design

/// A text of several lines with room between them, beyond what the font has.
TidloText {
    id: root

    /// Points between two lines.
    property double spacing: 0

    wrapMode: Text.Wrap
    lineHeightMode: Text.FixedHeight
    lineHeight: metrics.height + root.spacing

    FontMetrics {
        id: metrics

        font: root.font
    }
}
