import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// The explanation of the scan, or why there is none. It can be selected and copied; markup in it is not interpreted.
ContinuousRectangle {
    id: root

    required property string summary
    /// A sentence about the rest if the summary is only the beginning.
    property string rest: ""

    /// The whole text is to be copied, the rest included.
    signal wholeCopied
    /// Its menu is requested at this position in it, by the keyboard or the pointer.
    signal menuAsked(double x, double y, bool byKeys)

    implicitHeight: row.implicitHeight + 28
    radius: 10
    color: TidloTheme.faded(TidloTheme.green, TidloTheme.mixed(TidloTheme.darkness, 0.1, 0.13))

    MenuArea {
        onAsked: (x, y) => root.menuAsked(x, y, false)
    }

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 14
        spacing: 10

        Symbol {
            Layout.alignment: Qt.AlignTop
            name: "sparkles"
            size: 15
            weight: Font.DemiBold
            color: TidloTheme.green
        }
        ColumnLayout {
            spacing: 8

            SelectableText {
                objectName: "explanation"
                Layout.fillWidth: true
                text: root.summary
                font: TidloType.body
                color: TidloTheme.mutedText
                spacing: 3
                name: qsTr("Explanation")
                Keys.onMenuPressed: root.menuAsked(14, 14, true)
                Keys.onPressed: (event) => {
                    const wantsMenu = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
                    const copiesAll = selectedText.length === length && event.matches(StandardKey.Copy);
                    event.accepted = wantsMenu || copiesAll;
                    if (wantsMenu)
                        root.menuAsked(14, 14, true);
                    else if (copiesAll)
                        root.wholeCopied();
                }
            }
            TidloText {
                objectName: "rest"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.rest
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
            }
        }
    }
}
