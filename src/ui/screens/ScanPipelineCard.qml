pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// The steps of the scan.
CardModifier {
    id: root

    required property list<pipelineStep> steps

    implicitWidth: 430
    implicitHeight: column.implicitHeight + 40

    Column {
        id: column

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 20
        spacing: 10

        TidloText {
            text: qsTr("Scan pipeline")
            font: TidloType.system(21, Font.Bold, TidloType.scale)
            Accessible.role: Accessible.Heading
        }
        SpacedText {
            width: parent.width
            bottomPadding: 6
            text: qsTr("Tidlo is reading folder metadata and building a cleanup plan. File contents are not uploaded.")
            font: TidloType.small
            color: TidloTheme.mutedText
            spacing: 3
        }
        Column {
            width: parent.width
            spacing: 10

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Steps of the scan")

            Repeater {
                model: root.steps.length // A number, so that a step that changes keeps its row.

                ScanStep {
                    id: row

                    required property int index
                    readonly property pipelineStep step: root.steps[row.index]

                    width: column.width
                    title: row.step.title
                    detail: row.step.detail
                    active: row.step.active
                    symbol: row.step.symbol
                    stateText: row.step.state
                }
            }
        }
    }
}
