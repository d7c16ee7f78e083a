import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// Preferences: the theme, where explanations come from, and how to be rid of the application.
Item {
    id: root

    required property AppViewModel app
    required property Preferences preferences
    /// Of the window's corners.
    property double cornerRadius: 0
    property bool showUninstallConfirmation: false

    objectName: "settings"

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Settings")

        StatusPill {
            text: qsTr("AI proxy connected")
            pillColor: TidloTheme.systemMint
        }
    }

    ScrollArea {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: cards.implicitHeight + 30

        Column {
            id: cards

            x: (parent.width - width) / 2
            y: 8
            width: Math.min(parent.width - 44, 640)
            spacing: 12

            AppearanceCard {
                width: parent.width
                preferences: root.preferences
            }
            ProxyCard {
                width: parent.width
            }
            UninstallCard {
                width: parent.width
                onUninstallRequested: root.showUninstallConfirmation = true
            }
        }
    }

    Alert {
        objectName: "uninstallAlert"
        visible: root.showUninstallConfirmation
        windowRadius: root.cornerRadius
        title: qsTr("Uninstall Tidlo?")
        message: qsTr("Tidlo will quit, move the app to Trash, and remove its preferences and saved setup state.")
        defaultText: qsTr("Uninstall completely")
        cancelText: qsTr("Cancel")
        isDestructive: true
        onClosed: root.showUninstallConfirmation = false
        onAccepted: root.app.uninstallTidloCompletely()
    }
}
