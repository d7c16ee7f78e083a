import QtQuick
import Tidlo.Design

/// A text of several lines with extra space between them.
TidloText {
    id: root

    /// Extra points between two lines.
    property double spacing: 0

    wrapMode: Text.Wrap
    lineHeightMode: Text.FixedHeight
    lineHeight: metrics.height + root.spacing

    FontMetrics {
        id: metrics

        font: root.font
    }
}
