import QtQuick
import Tidlo.Design

/// The surface of a card. It adds no padding, no border and no shadow: whoever lays contents on it pads them.
ContinuousRectangle {
    color: TidloTheme.cardSurface
    radius: 10
}
