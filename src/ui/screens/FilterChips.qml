pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Screens

/// The filters of the results, side by side; the arrow keys go from one to the next and stay among them.
Row {
    id: root

    required property Findings findings

    /// Gives the keyboard focus to the filter that is chosen.
    function takeKeys() {
        for (let i = 0; i < chips.count; ++i) {
            if ((chips.itemAt(i) as FilterChip).selected)
                goTo(i, Qt.BacktabFocusReason);
        }
    }

    function goTo(index: int, reason: int) {
        const chip = chips.itemAt(index);
        if (chip)
            chip.forceActiveFocus(reason);
    }

    spacing: 8

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Filter by risk")

    Repeater {
        id: chips

        model: [
            { title: qsTr("All"), filter: Findings.All },
            { title: qsTr("Safe"), filter: Findings.Safe },
            { title: qsTr("Review"), filter: Findings.Review }
        ]

        FilterChip {
            required property int index
            required property var modelData

            objectName: "chip" + modelData.title
            text: modelData.title
            selected: root.findings.filter === modelData.filter
            onClicked: root.findings.filter = modelData.filter
            Keys.onRightPressed: root.goTo(index + 1, Qt.TabFocusReason)
            Keys.onLeftPressed: root.goTo(index - 1, Qt.BacktabFocusReason)
        }
    }
}
