import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// How to uninstall.
CardModifier {
    id: root

    signal uninstallRequested

    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 20
        spacing: 6

        TidloText {
            text: qsTr("Uninstall Tidlo")
            font: TidloType.headline
            Accessible.role: Accessible.Heading
        }
        SpacedText {
            Layout.fillWidth: true
            text: qsTr("Remove the installed application, Tidlo preferences, and saved setup state.")
            color: TidloTheme.mutedText
            spacing: 3
        }
        DangerButtonStyle {
            objectName: "uninstall"
            Layout.topMargin: 10
            text: qsTr("Uninstall completely")
            onClicked: root.uninstallRequested()
        }
    }
}
