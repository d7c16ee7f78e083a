import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// The start screen: one large button, and what it promises.
Item {
    id: root

    required property AppViewModel app
    required property KeptPaths keptPaths
    required property Disclosure disclosure
    required property Preferences preferences
    /// The corner radius of the window.
    property double cornerRadius: 0

    function showMenu(x: double, y: double, byKeys: bool) {
        const isOnPill = pill.contains(root.mapToItem(pill, x, y));
        menu.isOfPill = byKeys || isOnPill;
        menu.isOfScreen = byKeys || !isOnPill;
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

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onEntered: (drag) => drag.accepted = drag.urls.length === 1
        onDropped: (drop) => {
            drop.accepted = drop.urls.length === 1;
            if (drop.accepted)
                root.keptPaths.propose(drop.urls[0]);
        }
    }

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Scan")

        StatusPill {
            id: pill

            objectName: "explanationsPill"
            text: root.preferences.explanations ? qsTr("AI explanations on") : qsTr("AI explanations off")
            pillColor: root.preferences.explanations ? TidloTheme.systemMint : TidloTheme.mutedText
        }
    }

    Item {
        objectName: "landing"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 680)
        focus: true // Without a focused item, a screen reader misses the first key.

        Accessible.role: Accessible.Grouping
        Accessible.name: heading.text
        Accessible.focusable: true

        Column {
            anchors.centerIn: parent
            spacing: 20

            ScanButton {
                objectName: "scanButton"
                anchors.horizontalCenter: parent.horizontalCenter
                onClicked: root.app.startScan()
            }
            TidloText {
                id: heading

                anchors.horizontalCenter: parent.horizontalCenter
                topPadding: 8
                text: qsTr("AI-assisted deep clean")
                font: TidloType.system(28, Font.Bold, TidloType.scale)
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.Heading
            }
            SpacedText {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, 460)
                text: qsTr("Understands your projects, detects duplicates, and explains every decision before cleanup.")
                color: TidloTheme.secondaryLabel
                spacing: 4
                horizontalAlignment: Text.AlignHCenter
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 10

                LandingTrustPill { symbol: "lock.shield"; title: qsTr("Metadata only") }
                LandingTrustPill { symbol: "trash"; title: qsTr("Trash first") }
                LandingTrustPill { symbol: "sparkles"; title: qsTr("AI optional") }
            }
            PrimaryButtonStyle {
                objectName: "scanMyMac"
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("SCAN MY MAC")
                onClicked: root.app.startScan()
            }
        }
    }

    ContextMenu {
        id: menu

        // Whether the screen's own actions are offered. The keyboard cannot reach the pill, so its menu has the actions
        // of both.
        property bool isOfScreen: true
        property bool isOfPill: true
        // Handled once the menu has given the keyboard focus back.
        property string chosen

        objectName: "landingMenu"
        onAboutToShow: menu.chosen = ""
        onClosed: {
            if (menu.chosen === lookElsewhere.objectName)
                dialog.active = true;
            else if (menu.chosen === showSent.objectName)
                sentSheet.open();
        }

        ContextMenuItem {
            id: lookElsewhere

            objectName: "alsoLookIn"
            enabled: menu.isOfScreen
            text: qsTr("Also look in…")
            onTriggered: menu.chosen = lookElsewhere.objectName
        }
        ContextMenuItem {
            id: showSent

            objectName: "showSent"
            enabled: menu.isOfPill
            text: qsTr("Show what was sent…")
            onTriggered: menu.chosen = showSent.objectName
        }
    }

    SentSheet {
        id: sentSheet

        windowRadius: root.cornerRadius
        disclosure: root.disclosure
        preferences: root.preferences
    }

    // Loaded on demand: few people ever use it.
    Loader {
        id: dialog

        objectName: "placeDialog"
        active: false
        source: "PlaceDialog.qml"

        Connections {
            target: dialog.item
            function onChosen(folder: url) { root.keptPaths.propose(folder); }
            function onDone() { dialog.active = false; }
        }
    }

    Alert {
        objectName: "placeAlert"
        visible: root.keptPaths.question !== ""
        windowRadius: root.cornerRadius
        title: root.keptPaths.question
        message: qsTr("Tidlo looks there in every scan from now on, for projects with a marker such as package.json. The menu of the settings takes it back.")
        defaultText: qsTr("Look there too")
        cancelText: qsTr("Cancel")
        onAccepted: root.keptPaths.answer(true)
        onRejected: root.keptPaths.answer(false)
    }

    Alert {
        objectName: "placeRefusedAlert"
        visible: root.keptPaths.refusal !== ""
        windowRadius: root.cornerRadius
        title: qsTr("Tidlo does not look there")
        message: root.keptPaths.refusal
        defaultText: qsTr("OK")
        onClosed: root.keptPaths.answer(false)
    }
}
