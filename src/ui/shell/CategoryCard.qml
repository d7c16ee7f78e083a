import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Shell

/// A category of findings and its size.
Rectangle {
    id: root

    required property categoryFigure figure
    readonly property color categoryColor: TidloTheme.hues[root.figure.hue]

    implicitHeight: Math.max(74, words.implicitHeight + 16)
    color: root.figure.selected
           ? TidloTheme.faded(root.categoryColor, TidloTheme.mixed(TidloTheme.darkness, 0.1, 0.08)) : "transparent"

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(root.figure.title).arg(root.figure.bytesText)
    Accessible.description: root.figure.subtitle

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        spacing: 12

        ContinuousRectangle {
            Layout.preferredWidth: 34
            Layout.preferredHeight: 34
            radius: 8
            color: TidloTheme.faded(root.categoryColor, 0.13)

            Symbol {
                anchors.centerIn: parent
                name: root.figure.symbol
                size: 16
                weight: Font.DemiBold
                color: root.categoryColor
            }
        }
        Column {
            id: words

            Layout.fillWidth: true
            spacing: 2

            TidloText {
                width: parent.width
                text: root.figure.title
                font: TidloType.bodyStrong
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            TidloText {
                width: parent.width
                text: root.figure.subtitle
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
                maximumLineCount: Math.ceil(2 * TidloType.scale)
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
        TidloText {
            text: root.figure.bytesText
            font: TidloType.bodyStrong
            color: root.categoryColor
            Accessible.ignored: true
        }
    }
}
