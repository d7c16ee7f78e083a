import QtQuick
import Tidlo.Design

/// The platform's separator, one point high by default.
Rectangle {
    implicitHeight: 1
    color: TidloTheme.divider
}
