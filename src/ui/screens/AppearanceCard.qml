pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// The choice of the theme.
CardModifier {
    id: root

    required property Preferences preferences

    function goTo(index: int, reason: int) {
        const option = options.itemAt(index);
        if (option)
            option.forceActiveFocus(reason);
    }

    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 20
        spacing: 6

        TidloText {
            text: qsTr("Appearance & Theme")
            font: TidloType.system(22, Font.Bold, TidloType.scale)
            Accessible.role: Accessible.Heading
        }
        TidloText {
            Layout.fillWidth: true
            text: qsTr("Choose your preferred color scheme for Tidlo.")
            color: TidloTheme.mutedText
            wrapMode: Text.Wrap
        }
        GridLayout {
            Layout.fillWidth: true
            Layout.topMargin: 10
            columns: TidloType.scale > 1.25 ? 1 : 3
            rowSpacing: 10
            columnSpacing: 10

            Accessible.role: Accessible.Grouping
            Accessible.name: qsTr("Theme")

            Repeater {
                id: options

                model: [
                    { title: qsTr("Dark Mode"), symbol: "moon.fill", value: "dark" },
                    { title: qsTr("Light Mode"), symbol: "sun.max.fill", value: "light" },
                    { title: qsTr("Match System"), symbol: "laptopcomputer", value: "system" }
                ]

                ThemeOptionButton {
                    required property int index
                    required property var modelData

                    objectName: "theme-" + modelData.value
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    title: modelData.title
                    symbol: modelData.symbol
                    value: modelData.value
                    currentTheme: root.preferences.theme
                    onClicked: root.preferences.theme = value
                    Keys.onRightPressed: root.goTo(index + 1, Qt.TabFocusReason)
                    Keys.onLeftPressed: root.goTo(index - 1, Qt.BacktabFocusReason)
                }
            }
        }
    }
}
