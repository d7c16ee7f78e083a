import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// The progress of the scan or of a cleanup. Nothing here can be pressed; the keyboard focus rests on the progress.
Item {
    id: root

    required property ScanProgress progress
    /// The card and the list stand side by side where both have room, else one above the other.
    readonly property bool isWide: body.width >= 420 + 14 + 430

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Scanning your Mac")

        DigitText {
            text: root.progress.percentText
            font: TidloType.bodyStrong
        }
    }

    ScrollArea {
        id: body

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        contentHeight: Math.max(height, cards.implicitHeight + 44)

        Grid {
            id: cards

            anchors.centerIn: parent
            columns: root.isWide ? 2 : 1
            spacing: 14
            horizontalItemAlignment: Grid.AlignHCenter
            verticalItemAlignment: Grid.AlignVCenter

            ScanProgressCard {
                objectName: "progressCard"
                focus: true
                width: Math.min(420, body.width)
                progress: root.progress.fraction
                percentText: root.progress.percentText
                label: root.progress.label
            }
            ScanPipelineCard {
                objectName: "pipelineCard"
                width: root.isWide ? 430 : Math.min(420, body.width)
                steps: root.progress.steps
            }
        }
    }
}
