import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// Preferences: the theme, where explanations come from, and how to uninstall.
Item {
    id: root

    required property AppViewModel app
    required property Preferences preferences
    required property Removal removal
    required property KeptPaths keptPaths
    /// The corner radius of the window.
    property double cornerRadius: 0
    property bool showUninstallConfirmation: false

    objectName: "settings"

    function showMenu(x: double, y: double, byKeys: bool) {
        menu.showAt(root, x, y, byKeys);
    }

    MenuArea {
        onAsked: (x, y) => root.showMenu(x, y, false)
    }

    Shortcut {
        enabled: root.visible
        sequences: ["Menu", "Shift+F10"]
        onActivated: root.showMenu(22, header.height + 22, true)
    }

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Settings")

        StatusPill {
            text: root.preferences.explanations ? qsTr("AI proxy connected") : qsTr("AI explanations off")
            pillColor: root.preferences.explanations ? TidloTheme.systemMint : TidloTheme.mutedText
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
                preferences: root.preferences
            }
            UninstallCard {
                width: parent.width
                onUninstallRequested: {
                    root.removal.inspect();
                    root.showUninstallConfirmation = true;
                }
            }
        }
    }

    ContextMenu {
        id: menu

        // Handled once the menu has given the keyboard focus back.
        property bool chosen: false

        objectName: "settingsMenu"
        onAboutToShow: menu.chosen = false
        onClosed: {
            if (!menu.chosen)
                return;
            root.keptPaths.inspect();
            sheet.open();
        }

        ContextMenuItem {
            objectName: "showKeptPaths"
            text: qsTr("Never suggested, and looked into…")
            onTriggered: menu.chosen = true
        }
    }

    Sheet {
        id: sheet

        objectName: "keptPathsSheet"
        windowRadius: root.cornerRadius
        title: root.keptPaths.title
        onClosed: root.keptPaths.clear()

        contentItem: ItemsView {
            focus: true
            items: root.keptPaths
            detailBeneath: true
            note: root.keptPaths.note
            onDone: sheet.close()
        }
    }

    Alert {
        objectName: "uninstallAlert"
        visible: root.showUninstallConfirmation
        windowRadius: root.cornerRadius
        title: qsTr("Uninstall Tidlo?")
        message: root.removal.message
        defaultText: root.removal.action
        cancelText: qsTr("Cancel")
        isDestructive: true
        onClosed: root.showUninstallConfirmation = false
        onAccepted: root.removal.carryOut()
    }
}
