import QtQuick
import Tidlo.Design

/// The platform's separator, one point high unless it is told otherwise.
Rectangle {
    implicitHeight: 1
    color: TidloTheme.divider
}
