pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Tidlo.Design
import Tidlo.Screens

/// What a scan found, to be read, filtered and ticked.
Item {
    id: root

    required property AppViewModel app

    Findings {
        id: findings

        app: root.app
    }

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: findings.headline

        FilterChips {
            findings: findings
        }
    }

    ListView {
        id: list

        objectName: "findings"
        anchors.top: header.bottom
        anchors.bottom: bar.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        clip: true
        spacing: 8
        model: findings
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        cacheBuffer: 600
        T.ScrollBar.vertical: OverlayScrollBar {}

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Findings")

        header: Item {
            width: list.width
            implicitHeight: card.status === Loader.Ready ? card.implicitHeight + 16 : 8

            Loader {
                id: card

                y: 8
                width: parent.width
                sourceComponent: root.app.isGeneratingAI ? loading : findings.summary !== "" ? summary : null
            }
        }
        footer: Item {
            implicitHeight: 8
        }

        delegate: CandidateRow {
            id: row

            required property int index

            objectName: "row" + index
            width: list.width
            onClicked: {
                list.currentIndex = row.index;
                findings.toggle(row.index);
            }
            onActiveFocusChanged: if (activeFocus) list.positionViewAtIndex(row.index, ListView.Contain)
            Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }

    Component {
        id: loading
        AILoadingCard {}
    }
    Component {
        id: summary
        AISummaryCard { summary: findings.summary }
    }

    BottomActionBar {
        id: bar

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        app: root.app
        findings: findings
    }
}
