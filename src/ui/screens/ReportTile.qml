import QtQuick
import Tidlo.Design

/// One figure of the report.
CardModifier {
    id: root

    required property string title
    required property string valueText
    required property string detail
    required property color tileColor

    implicitHeight: column.implicitHeight + 36

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(root.title).arg(root.valueText)
    Accessible.description: root.detail

    Column {
        id: column

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 18
        spacing: 6

        TidloText {
            text: root.title
            font: TidloType.tracked(TidloType.caption, 1.2)
            color: TidloTheme.mutedText
            Accessible.ignored: true
        }
        TidloText {
            text: root.valueText
            font: TidloType.system(22, Font.Bold, TidloType.scale)
            color: root.tileColor
            Accessible.ignored: true
        }
        TidloText {
            text: root.detail
            font: TidloType.small
            color: TidloTheme.mutedText
            Accessible.ignored: true
        }
    }
}
