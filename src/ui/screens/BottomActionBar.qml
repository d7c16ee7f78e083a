import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// What is selected, and what can be done with it.
Item {
    id: root

    required property Findings findings
    /// The corner radius of the window.
    property double cornerRadius: 0

    function showMenu(x: double, y: double, byKeys: bool) {
        menu.showAt(root, x, y, byKeys);
    }

    Keys.onMenuPressed: root.showMenu(22, 22, true)
    Keys.onPressed: (event) => {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.showMenu(22, 22, true);
    }

    implicitHeight: 86

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        spacing: 12

        Column {
            Layout.fillWidth: true
            spacing: 3

            TidloText {
                objectName: "selectionText"
                text: root.findings.selectionText
                font: TidloType.section

                MenuArea {
                    id: area

                    onAsked: (x, y) => root.showMenu(root.mapFromItem(area, x, y).x, 22, false)
                }
            }
            TidloText {
                text: qsTr("Moves to Trash — never permanent")
                font: TidloType.small
                color: TidloTheme.mutedText
            }
        }
        SecondaryButtonStyle {
            objectName: "viewReport"
            text: qsTr("View report")
            onClicked: root.findings.viewReport()
        }
        PrimaryButtonStyle {
            objectName: "moveToTrash"
            text: qsTr("Move to Trash")
            enabled: root.findings.canMove
            Accessible.description: root.findings.selectionText
            onClicked: root.findings.moveSelectedToTrash()
        }
    }

    ContextMenu {
        id: menu

        // Handled once the menu has given the keyboard focus back.
        property bool chosen: false

        objectName: "barMenu"
        onAboutToShow: menu.chosen = false
        onClosed: {
            if (!menu.chosen)
                return;
            forecast.message = root.findings.whatThisFrees();
            forecast.open();
        }

        ContextMenuItem {
            objectName: "whatThisFrees"
            text: qsTr("What this frees…")
            onTriggered: menu.chosen = true
        }
    }

    Alert {
        id: forecast

        objectName: "forecastAlert"
        windowRadius: root.cornerRadius
        title: qsTr("What this frees")
        message: ""
        defaultText: qsTr("OK")
    }
}
