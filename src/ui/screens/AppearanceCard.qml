pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// The choice of the theme.
CardModifier {
    id: root

    required property Preferences preferences

    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 20
        spacing: 6

        TidloText {
            text: qsTr("Appearance & Theme")
            font: TidloType.system(22, Font.Bold)
            Accessible.role: Accessible.Heading
        }
        TidloText {
            Layout.fillWidth: true
            text: qsTr("Choose your preferred color scheme for Tidlo.")
            color: TidloTheme.mutedText
            wrapMode: Text.Wrap
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 10
            spacing: 10

            Accessible.role: Accessible.Grouping
            Accessible.name: qsTr("Theme")

            Repeater {
                model: [
                    { title: qsTr("Dark Mode"), symbol: "moon.fill", value: "dark" },
                    { title: qsTr("Light Mode"), symbol: "sun.max.fill", value: "light" },
                    { title: qsTr("Match System"), symbol: "laptopcomputer", value: "system" }
                ]

                ThemeOptionButton {
                    required property var modelData

                    objectName: "theme-" + modelData.value
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    title: modelData.title
                    symbol: modelData.symbol
                    value: modelData.value
                    currentTheme: root.preferences.theme
                    onClicked: root.preferences.theme = value
                    Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                    Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                }
            }
        }
    }
}
