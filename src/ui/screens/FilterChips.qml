pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Screens

/// The filters of the results, side by side; the arrow keys go from one to the next.
Row {
    id: root

    required property Findings findings

    spacing: 8

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Filter by risk")

    Repeater {
        model: [
            { title: qsTr("All"), filter: Findings.All },
            { title: qsTr("Safe"), filter: Findings.Safe },
            { title: qsTr("Review"), filter: Findings.Review }
        ]

        FilterChip {
            required property var modelData

            objectName: "chip" + modelData.title
            text: modelData.title
            selected: root.findings.filter === modelData.filter
            onClicked: root.findings.filter = modelData.filter
            Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
}
