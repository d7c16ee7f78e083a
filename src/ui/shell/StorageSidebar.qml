pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens
import Tidlo.Shell

/// The column that sums up the disk and the last scan. It has no controls.
Rectangle {
    id: root

    required property StorageFigures figures

    implicitWidth: 330
    color: TidloTheme.sidebarBackground

    ScrollArea {
        objectName: "storage"
        anchors.fill: parent
        contentHeight: column.implicitHeight
        takesKeys: true

        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Storage")

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 0

            TidloText {
                Layout.leftMargin: 20
                Layout.topMargin: 16
                text: qsTr("STORAGE")
                font: TidloType.tracked(TidloType.smallStrong, 1.6)
                color: TidloTheme.mutedText
                Accessible.role: Accessible.Heading
            }
            RowLayout {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                Layout.topMargin: 24

                TidloText {
                    Layout.fillWidth: true
                    text: qsTr("Macintosh HD")
                }
                TidloText {
                    objectName: "diskStatus"
                    text: root.figures.diskStatus
                    font: TidloType.bodyStrong
                    color: TidloTheme.red
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.margins: 20
                Layout.topMargin: 16
                Layout.bottomMargin: 16
                spacing: 10

                SidebarMetricCard {
                    Layout.fillWidth: true
                    ringName: "diskRing"
                    title: qsTr("Disk")
                    subtitle: qsTr("Macintosh HD usage")
                    share: root.figures.usedShare
                    valueText: root.figures.usedText
                    label: qsTr("USED")
                    metricColor: TidloTheme.red
                }
                SidebarMetricCard {
                    Layout.fillWidth: true
                    ringName: "recoverableRing"
                    title: qsTr("Recoverable")
                    subtitle: qsTr("Estimated cleanup space")
                    share: root.figures.recoverableShare
                    valueText: root.figures.recoverableText
                    label: qsTr("FREE")
                    metricColor: TidloTheme.green
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                Layout.bottomMargin: 20
                spacing: 8

                Repeater {
                    model: root.figures.categories.length // A number, so that a category whose bytes change keeps its
                                                          // row.

                    SidebarLegendRow {
                        required property int index

                        Layout.fillWidth: true
                        figure: root.figures.categories[index]
                    }
                }
            }
            Divider {
                Layout.fillWidth: true
                opacity: TidloTheme.mixed(TidloTheme.darkness, 0.22, 0.7)
            }
            Repeater {
                model: root.figures.categories.length

                CategoryCard {
                    required property int index

                    objectName: "category" + index
                    Layout.fillWidth: true
                    figure: root.figures.categories[index]
                }
            }
        }
    }
}
