import QtQuick
import Tidlo.Design

/// The surface of a card. It adds no padding, no border and no shadow: the content adds its own padding.
ContinuousRectangle {
    color: TidloTheme.cardSurface
    radius: 10
}
