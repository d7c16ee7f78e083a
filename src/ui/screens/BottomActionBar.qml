import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// What is selected, and what can be done with it.
Item {
    id: root

    required property Findings findings

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
            onClicked: root.findings.moveSelectedToTrash()
        }
    }
}
