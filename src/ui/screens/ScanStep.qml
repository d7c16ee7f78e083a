import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// One step of the scan: waiting, under way, or done.
ContinuousRectangle {
    id: root

    required property string title
    required property string detail
    required property bool active
    required property string symbol
    /// The same as one word.
    required property string stateText

    implicitHeight: row.implicitHeight + 24
    radius: 12
    color: root.active ? TidloTheme.faded(TidloTheme.green, 0.08) : TidloTheme.faded(TidloTheme.systemGray, 0.06)

    Accessible.role: Accessible.ListItem
    Accessible.name: root.title + ", " + root.stateText
    Accessible.description: root.detail

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 12
        spacing: 12

        Rectangle {
            objectName: "badge"
            Layout.preferredWidth: 30
            Layout.preferredHeight: 30
            radius: 15
            color: root.active ? TidloTheme.faded(TidloTheme.green, 0.16)
                               : TidloTheme.faded(TidloTheme.systemGray, 0.1)

            Symbol {
                anchors.centerIn: parent
                name: root.symbol
                size: 12
                weight: Font.Bold
                color: root.active ? TidloTheme.green : TidloTheme.mutedText
            }
        }
        Column {
            Layout.fillWidth: true
            spacing: 3

            TidloText {
                width: parent.width
                text: root.title
                font: TidloType.sidebarStrong
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            TidloText {
                width: parent.width
                text: root.detail
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
    }
}
