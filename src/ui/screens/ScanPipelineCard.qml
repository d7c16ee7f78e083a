pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// What the scan does, step by step.
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
            font: TidloType.system(21, Font.Bold)
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
        Repeater {
            model: root.steps

            ScanStep {
                required property pipelineStep modelData

                width: column.width
                title: modelData.title
                detail: modelData.detail
                active: modelData.active
                complete: modelData.complete
            }
        }
    }
}
