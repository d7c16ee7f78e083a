import QtQuick
import Tidlo.Screens

/// Preferences.
Item {
    id: root

    required property AppViewModel app

    HeaderRow {
        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Settings")
    }
}
