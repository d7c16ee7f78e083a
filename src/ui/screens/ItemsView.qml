pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tidlo.Design
import Tidlo.Screens

/// A list of items that can be searched, sorted, shown in the file browser and, in some lists, ticked.
FocusScope {
    id: root

    required property ItemList items
    /// Whether the details of the items are sentences.
    property bool detailBeneath: false
    /// The controls beside the search field.
    property alias tools: tools.data
    /// The buttons beside the one that closes the list.
    property alias actions: actions.data
    /// A sentence between these buttons.
    property string note: ""

    signal done
    /// The menu of a row is requested at this position in \a item, by the keyboard or the pointer.
    signal menuAsked(Item item, int row, double x, double y, bool byKeys)

    /// Runs \a change, which computes the rows again, and keeps the scroll position.
    function stayWhile(change: var) {
        const y = list.contentY, row = list.currentIndex;
        change();
        list.goTo(row);
        list.contentY = Math.max(0, Math.min(y, list.contentHeight - list.height));
    }

    implicitWidth: 820
    implicitHeight: 560

    Keys.onEscapePressed: root.done()

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 22
        spacing: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 12

            Column {
                Layout.fillWidth: true
                spacing: 2

                TidloText {
                    width: parent.width
                    text: root.items.title
                    font: TidloType.system(18, Font.Bold, TidloType.scale)
                    elide: Text.ElideRight
                    Accessible.role: Accessible.Heading
                }
                TidloText {
                    objectName: "itemsSummary"
                    text: root.items.summary
                    font: TidloType.small
                    color: TidloTheme.mutedText
                }
            }
            SearchField {
                objectName: "itemsSearch"
                focus: true
                placeholderText: qsTr("Search paths")
                text: root.items.filter
                onTextEdited: root.items.filter = text
                Keys.onDownPressed: list.forceActiveFocus(Qt.TabFocusReason)
            }
            Row {
                id: tools

                visible: tools.children.length > 0
            }
        }

        ContinuousRectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            radius: 10
            color: TidloTheme.windowBackground

            ListView {
                id: list

                readonly property int rowsShown: list.height / (root.detailBeneath ? 52 : 36)

                function goTo(row: int) {
                    list.currentIndex = Math.min(Math.max(row, 0), list.count - 1);
                }

                function askForMenu() {
                    if (list.currentItem)
                        root.menuAsked(list.currentItem, list.currentIndex, 10, 18, true);
                }

                objectName: "items"
                anchors.fill: parent
                anchors.margins: 6
                clip: true
                model: root.items
                activeFocusOnTab: true
                keyNavigationEnabled: true
                reuseItems: true
                cacheBuffer: 0 // Rows made ahead would still be used after a search has left fewer rows.
                boundsBehavior: Flickable.StopAtBounds
                T.ScrollBar.vertical: OverlayScrollBar {}

                Accessible.role: Accessible.List
                Accessible.name: qsTr("Items")

                highlightMoveDuration: 0
                onCountChanged: if (list.currentIndex < 0 || list.currentIndex >= list.count) list.goTo(0)

                Keys.onSpacePressed: root.items.toggle(list.currentIndex)
                Keys.onReturnPressed: root.items.showInFiles(list.currentIndex)
                Keys.onEnterPressed: root.items.showInFiles(list.currentIndex)
                Keys.onPressed: (event) => {
                    event.accepted = true;
                    const wantsMenu = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
                    if (event.key === Qt.Key_Menu || wantsMenu)
                        list.askForMenu();
                    else if (event.matches(StandardKey.Copy))
                        root.items.copyPath(list.currentIndex);
                    else if (event.key === Qt.Key_PageUp)
                        list.goTo(list.currentIndex - list.rowsShown);
                    else if (event.key === Qt.Key_PageDown)
                        list.goTo(list.currentIndex + list.rowsShown);
                    else if (event.key === Qt.Key_Home)
                        list.goTo(0);
                    else if (event.key === Qt.Key_End)
                        list.goTo(list.count - 1);
                    else
                        event.accepted = false;
                }

                delegate: ItemRow {
                    id: row

                    required property int index

                    function takeKeys() {
                        list.currentIndex = row.index;
                        list.forceActiveFocus(Qt.MouseFocusReason);
                    }

                    width: list.width
                    detailBeneath: root.detailBeneath
                    tickable: root.items.tickable
                    onToggleRequested: {
                        row.takeKeys();
                        root.items.toggle(row.index);
                    }
                    current: list.activeFocus && list.currentIndex === row.index
                    onShowRequested: root.items.showInFiles(row.index)
                    onCopyRequested: root.items.copyPath(row.index)

                    TapHandler {
                        onTapped: row.takeKeys()
                    }
                    MenuArea {
                        onAsked: (x, y) => {
                            row.takeKeys();
                            root.menuAsked(row, row.index, x, y, false);
                        }
                    }
                }
            }

            TidloText {
                anchors.centerIn: parent
                visible: root.items.count === 0 && root.items.filter !== ""
                text: qsTr("No path contains this text.")
                color: TidloTheme.mutedText
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 12

            Row {
                id: actions

                spacing: 12
            }
            TidloText {
                objectName: "itemsNote"
                Layout.fillWidth: true
                text: root.note
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
                Accessible.role: Accessible.AlertMessage
                Accessible.ignored: root.note === ""
            }
            PrimaryButtonStyle {
                objectName: "itemsDone"
                text: qsTr("Done")
                onClicked: root.done()
            }
        }
    }
}
