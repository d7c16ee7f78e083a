import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// The main figure of a cleanup.
ContinuousRectangle {
    id: root

    required property ShownReport report

    implicitHeight: row.implicitHeight + 44
    radius: 14
    color: TidloTheme.faded(TidloTheme.green, TidloTheme.mixed(TidloTheme.darkness, 0.12, 0.16))
    borderColor: TidloTheme.solid(TidloTheme.green, 0.25)
    borderWidth: 1

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 22
        spacing: 14

        Column {
            Layout.fillWidth: true
            spacing: 6

            TidloText {
                id: caption

                text: qsTr("SPACE RECOVERED")
                font: TidloType.system(10, Font.Bold, TidloType.scale)
                color: TidloTheme.solid(TidloTheme.green, 0.8)
                Accessible.ignored: true
            }
            TidloText {
                objectName: "recovered"
                text: root.report.recoveredText
                font: TidloType.rounded(44, Font.Bold, TidloType.scale)
                Accessible.name: qsTr("%1: %2").arg(caption.text).arg(text)
            }
            TidloText {
                text: root.report.diskText
                color: TidloTheme.solid(TidloTheme.green, 0.85)
            }
        }
        MetricRing {
            share: root.report.freeShare
            valueText: root.report.freeText
            label: qsTr("FREE")
            color: TidloTheme.green
        }
    }
}
