pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// One item of a list: its path, a detail about it, and its actions.
Rectangle {
    id: root

    required property string pathText
    required property string detailText
    required property bool ticked
    /// Whether it has a tick box at all.
    property bool tickable: false
    /// Whether the detail is a sentence, which gets a line of its own.
    property bool detailBeneath: false
    /// Whether the arrow keys have selected it; only then can Tab reach its buttons.
    required property bool current

    signal toggleRequested
    signal showRequested
    signal copyRequested

    implicitHeight: root.detailBeneath ? 52 : 36
    radius: 8
    color: root.current ? TidloTheme.faded(TidloTheme.blue, 0.16)
                        : hover.hovered ? TidloTheme.faded(TidloTheme.systemGray, 0.1) : "transparent"

    Accessible.role: root.tickable ? Accessible.CheckBox : Accessible.ListItem
    Accessible.name: root.pathText + ", " + root.detailText
    Accessible.description: root.tickable ? qsTr("Return shows it in Files") : qsTr("Press to show it in Files")
    Accessible.checkable: root.tickable
    Accessible.checked: root.tickable && root.ticked
    Accessible.onPressAction: root.tickable ? root.toggleRequested() : root.showRequested()
    Accessible.onToggleAction: root.toggleRequested()

    HoverHandler {
        id: hover
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 14
        spacing: 8

        PlainButton {
            objectName: "tick"
            Layout.leftMargin: -8
            Layout.rightMargin: -8
            visible: root.tickable
            padding: 8
            focusPolicy: Qt.NoFocus
            onClicked: root.toggleRequested()

            Accessible.ignored: true

            contentItem: Symbol {
                name: root.ticked ? "checkmark.square.fill" : "square"
                size: 16
                color: root.ticked ? TidloTheme.green : TidloTheme.mutedText
            }
        }
        ColumnLayout {
            spacing: 1

            TidloText {
                Layout.fillWidth: true
                text: root.pathText
                font: TidloType.system(13, Font.Normal, TidloType.scale)
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            TidloText {
                Layout.fillWidth: true
                visible: root.detailBeneath
                text: root.detailText
                font: TidloType.small
                color: TidloTheme.mutedText
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
        // Made only for the row under the pointer and the current row, so that the others appear sooner. Made anew when
        // the row shows another item, so that a press that began on one item does not act on the other.
        Repeater {
            model: hover.hovered || root.current ? [root.pathText] : []

            RowLayout {
                spacing: 8

                SymbolButton {
                    objectName: "showInFiles"
                    text: qsTr("Show in Files")
                    symbol: "folder"
                    onClicked: root.showRequested()
                }
                SymbolButton {
                    objectName: "copyPath"
                    text: qsTr("Copy path")
                    symbol: "doc.on.doc"
                    onClicked: root.copyRequested()
                }
            }
        }
        TidloText {
            Layout.preferredWidth: 84 * TidloType.scale
            visible: !root.detailBeneath
            text: root.detailText
            font: TidloType.sidebarStrong
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
    }
}
