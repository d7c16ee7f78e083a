import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Shell

/// The bar in place of the title bar: the logo, the name, and the theme.
Item {
    id: root

    signal themeSwitched

    implicitHeight: 46

    Accessible.role: Accessible.ToolBar
    Accessible.name: title.text

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        spacing: 0

        // Room for the window's own buttons.
        Item {
            Layout.preferredWidth: 86
        }
        TidloLogo {
            size: 23
        }
        TidloText {
            id: title

            Layout.leftMargin: 9
            Layout.fillWidth: true
            text: qsTr("Tidlo — AI Storage Cleaner")
            font: TidloType.bodyStrong
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        ThemeButton {
            objectName: "themeButton"
            onClicked: root.themeSwitched()
        }
        // Decoration for now: nothing sends notifications yet.
        PlainButton {
            objectName: "bell"
            Layout.leftMargin: 12
            text: qsTr("Notifications")
            cornerRadius: 6

            contentItem: Symbol {
                name: "bell"
                size: 14
                weight: Font.DemiBold
                color: TidloTheme.primaryText
            }
        }
    }

    // In the dark scheme no line separates the bar from the content below it.
    Rectangle {
        objectName: "hairline"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: TidloTheme.isDark ? 0 : 1
        color: TidloTheme.controlBorder
    }
}
