pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// One item of a finding: where it lies, how large it is, and what can be done with it.
Rectangle {
    id: root

    required property string pathText
    required property string sizeText
    /// Whether the arrow keys are here; only then can Tab reach the buttons.
    required property bool current

    signal showRequested
    signal copyRequested

    implicitHeight: 36
    radius: 8
    color: root.current ? TidloTheme.faded(TidloTheme.blue, 0.16)
                        : hover.hovered ? TidloTheme.faded(TidloTheme.systemGray, 0.1) : "transparent"

    Accessible.role: Accessible.ListItem
    Accessible.name: root.sizeText === "" ? root.pathText : root.pathText + ", " + root.sizeText
    Accessible.description: qsTr("Press to show it in Files")
    Accessible.onPressAction: root.showRequested()

    HoverHandler {
        id: hover
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 14
        spacing: 8

        TidloText {
            Layout.fillWidth: true
            text: root.pathText
            font: TidloType.system(13, Font.Normal)
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        // Made for the row that is pointed at, or is current, alone: all the others appear the sooner.
        Repeater {
            model: hover.hovered || root.current ? 1 : 0

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
            Layout.preferredWidth: 84
            text: root.sizeText
            font: TidloType.sidebarStrong
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
    }
}
