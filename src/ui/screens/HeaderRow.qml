import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// The header of every screen: its title, and on the other side its declared children.
Item {
    id: root

    required property string title
    default property alias trailing: trailingRow.data

    implicitHeight: 56
    implicitWidth: row.implicitWidth + 44

    Rectangle {
        anchors.fill: parent
        color: TidloTheme.windowBackground
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        spacing: 12

        TidloText {
            Layout.fillWidth: true
            text: root.title
            font: TidloType.section
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        Row {
            id: trailingRow

            spacing: 8
        }
    }
}
