pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// The result of a cleanup, or a preview of what the selection would give.
Item {
    id: root

    required property ShownReport report
    required property StayedItems items
    /// The corner radius of the window.
    property double cornerRadius: 0

    function showMenu(x: double, y: double, byKeys: bool) {
        if (!root.report.hasStayed && !root.report.canPutBack)
            return;
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

    Shortcut {
        enabled: root.visible && root.report.canPutBack
        sequences: [StandardKey.Undo] // qmllint disable unqualified
        onActivated: root.report.putEverythingBack()
    }

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Cleanup report")

        // Decoration only.
        Symbol { name: "square.and.arrow.up"; size: 15; color: TidloTheme.mutedText }
        Symbol { name: "square.and.arrow.down"; size: 15; color: TidloTheme.mutedText }
    }

    ScrollArea {
        objectName: "report"
        focus: true
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: column.implicitHeight + 44
        activeFocusOnTab: true // A screen reader reads the whole report here.

        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Report")

        ColumnLayout {
            id: column

            x: 22
            y: 22
            width: parent.width - 44
            spacing: 14

            ReportHero {
                Layout.fillWidth: true
                report: root.report
            }
            GridLayout {
                Layout.fillWidth: true
                columns: 2
                columnSpacing: 14
                rowSpacing: 14

                Repeater {
                    model: root.report.figures.length // A number, so that a tile whose figure changes is not made anew.

                    ReportTile {
                        id: tile

                        required property int index
                        readonly property reportFigure figure: root.report.figures[tile.index]

                        Layout.fillWidth: true
                        Layout.preferredWidth: 1
                        title: tile.figure.title
                        valueText: tile.figure.value
                        detail: tile.figure.detail
                        tileColor: TidloTheme.hues[tile.figure.hue]
                    }
                }
            }
            RowLayout {
                Layout.fillWidth: true
                Layout.topMargin: 4
                spacing: 10

                Symbol {
                    name: "shield.checkered"
                    size: 15
                    color: TidloTheme.green
                }
                SpacedText {
                    Layout.fillWidth: true
                    text: qsTr("Everything moved to Trash first. Nothing is permanently deleted until the Bin is emptied.")
                    font: TidloType.callout
                    color: TidloTheme.mutedText
                    spacing: 3
                }
            }
        }
    }

    ContextMenu {
        id: menu

        // Handled once the menu has given the keyboard focus back.
        property ContextMenuItem chosen: null

        objectName: "reportMenu"
        onAboutToShow: menu.chosen = null
        onClosed: {
            if (menu.chosen === putBack) {
                root.report.putEverythingBack();
            } else if (menu.chosen === showStayed) {
                root.items.inspect();
                sheet.open();
            }
        }

        ContextMenuItem {
            id: putBack

            objectName: "putBack"
            text: qsTr("Put everything back")
            enabled: root.report.canPutBack
            onTriggered: menu.chosen = putBack
        }
        ContextMenuItem {
            id: showStayed

            objectName: "showStayed"
            text: qsTr("What stayed…")
            enabled: root.report.hasStayed
            onTriggered: menu.chosen = showStayed
        }
    }

    Sheet {
        id: sheet

        objectName: "stayedSheet"
        windowRadius: root.cornerRadius
        title: root.items.title
        onClosed: root.items.clear()

        contentItem: ItemsView {
            focus: true
            items: root.items
            detailBeneath: true
            onDone: sheet.close()
        }
    }
}
