import QtQuick
import Tidlo.Design
Rectangle {
    property double size: 16
    implicitWidth: size
    implicitHeight: size
    radius: 3
    color: TidloTheme.blue
}
