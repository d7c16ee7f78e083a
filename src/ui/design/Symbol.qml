import QtQuick
Rectangle {
    property string name
    property double size: 16
    property int weight: 400
    implicitWidth: size*1.2
    implicitHeight: size*1.2
    radius: 3
}
