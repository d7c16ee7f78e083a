pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// The findings of a scan, to read, filter and tick.
Item {
    id: root

    required property Findings findings
    required property FoundItems items
    required property Disclosure disclosure
    required property Preferences preferences
    /// The corner radius of the window.
    property double cornerRadius: 0

    /// Gives the keyboard focus to the first finding, if there is one.
    function goToFirst() {
        if (rows.count > 0)
            rows.itemAt(0).forceActiveFocus(Qt.TabFocusReason);
    }

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: root.findings.headline

        FilterChips {
            id: chips

            findings: root.findings
            Keys.onDownPressed: root.goToFirst()
        }
    }

    ScrollArea {
        id: area

        objectName: "findings"
        focus: true
        anchors.top: header.bottom
        anchors.bottom: bar.top
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: column.height

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Findings")
        Accessible.description: root.findings.headline
        Accessible.focusable: true

        Keys.onDownPressed: root.goToFirst()

        Connections {
            target: root.findings
            function onReplaced() { area.scrollTo(0, 0); }
        }

        Column {
            id: column

            x: 22
            width: area.width - 44
            topPadding: 8
            bottomPadding: 8
            spacing: 8

            AILoadingCard {
                objectName: "loadingCard"
                width: parent.width
                visible: root.findings.isExplaining
            }
            AISummaryCard {
                id: card

                objectName: "summaryCard"
                width: parent.width
                visible: !root.findings.isExplaining && root.findings.summary !== ""
                summary: root.findings.summary
                rest: root.findings.summaryRest
                onWholeCopied: root.findings.copySummary()
                onMenuAsked: (x, y, byKeys) => cardMenu.showAt(card, x, y, byKeys)
            }
            Repeater {
                id: rows

                model: root.findings

                CandidateRow {
                    id: row

                    required property int index

                    function goTo(next: int) {
                        const other = rows.itemAt(next);
                        if (other)
                            other.forceActiveFocus(next > row.index ? Qt.TabFocusReason : Qt.BacktabFocusReason);
                    }

                    objectName: "row" + row.index
                    width: column.width
                    onClicked: root.findings.toggle(row.index)
                    onMenuAsked: (x, y, byKeys) => menu.showFor(row, x, y, byKeys)
                    onInspected: {
                        root.items.inspect(root.findings.candidateAt(row.index));
                        sheet.open();
                    }
                    Keys.onDownPressed: row.goTo(row.index + 1)
                    Keys.onUpPressed: row.index > 0 ? row.goTo(row.index - 1) : chips.takeKeys()
                }
            }
        }
    }

    ContextMenu {
        id: menu

        property CandidateRow row: null
        // Handled once the menu has given the keyboard focus back.
        property bool chosen: false

        function showFor(row: CandidateRow, x: double, y: double, byKeys: bool) {
            menu.row = row;
            menu.showAt(row, x, y, byKeys);
        }

        objectName: "rowMenu"
        onAboutToShow: menu.chosen = false
        onClosed: {
            if (menu.chosen && menu.row)
                menu.row.inspected();
        }

        ContextMenuItem {
            objectName: "showItems"
            text: qsTr("Show items…")
            onTriggered: menu.chosen = true
        }
    }

    ContextMenu {
        id: cardMenu

        // Handled once the menu has given the keyboard focus back.
        property bool chosen: false

        objectName: "cardMenu"
        onAboutToShow: cardMenu.chosen = false
        onClosed: if (cardMenu.chosen) sentSheet.open()

        ContextMenuItem {
            objectName: "showSent"
            text: qsTr("Show what was sent…")
            onTriggered: cardMenu.chosen = true
        }
    }

    SentSheet {
        id: sentSheet

        windowRadius: root.cornerRadius
        disclosure: root.disclosure
        preferences: root.preferences
    }

    ContextMenu {
        id: itemMenu

        property int row: -1
        property string line: ""
        // Handled once the menu has given the keyboard focus back.
        property bool chosen: false

        function showFor(item: Item, row: int, x: double, y: double, byKeys: bool) {
            itemMenu.row = row;
            itemMenu.line = root.items.spareText(row);
            itemMenu.showAt(item, x, y, byKeys);
        }

        objectName: "itemMenu"
        onAboutToShow: itemMenu.chosen = false
        onClosed: {
            if (!itemMenu.chosen)
                return;
            itemsView.stayWhile(() => root.items.spare(itemMenu.row));
            if (root.items.title === "")
                sheet.close();
        }

        ContextMenuItem {
            objectName: "neverSuggest"
            text: itemMenu.line
            onTriggered: itemMenu.chosen = true
        }
    }

    BottomActionBar {
        id: bar

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        findings: root.findings
        cornerRadius: root.cornerRadius
    }

    Sheet {
        id: sheet

        objectName: "itemsSheet"
        windowRadius: root.cornerRadius
        title: root.items.title
        onClosed: root.items.clear()

        contentItem: ItemsView { // qmllint disable deferred-property-id
            id: itemsView

            focus: true
            items: root.items
            note: root.items.note
            onDone: sheet.close()
            onMenuAsked: (item, row, x, y, byKeys) => {
                if (root.items.tickable)
                    itemMenu.showFor(item, row, x, y, byKeys);
            }
            actions: [
                SecondaryButtonStyle {
                    objectName: "tickShown"
                    visible: root.items.tickable
                    text: qsTr("Tick shown")
                    onClicked: root.items.tickShown(true)
                },
                SecondaryButtonStyle {
                    objectName: "untickShown"
                    visible: root.items.tickable
                    text: qsTr("Untick shown")
                    onClicked: root.items.tickShown(false)
                }
            ]

            tools: ToggleChip {
                objectName: "largestFirst"
                text: qsTr("Largest first")
                selected: root.items.largestFirst
                onClicked: root.items.largestFirst = !root.items.largestFirst
            }
        }
    }
}
