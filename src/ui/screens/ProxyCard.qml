import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// Where explanations come from.
CardModifier {
    id: root

    required property Preferences preferences

    implicitHeight: column.implicitHeight + 40

    ProxyStatus {
        id: proxy
    }

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 20
        spacing: 6

        TidloText {
            text: qsTr("Tidlo AI Server Proxy")
            font: TidloType.system(22, Font.Bold, TidloType.scale)
            Accessible.role: Accessible.Heading
        }
        SpacedText {
            Layout.fillWidth: true
            text: qsTr("Powered by Google Gemini 1.5 Flash.")
            color: TidloTheme.mutedText
            spacing: 3
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 10
            spacing: 12

            Symbol {
                name: "checkmark.seal.fill"
                size: 20
                weight: Font.DemiBold
                color: TidloTheme.green
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2

                TidloText {
                    text: qsTr("Server Proxy Status: Active")
                    font: TidloType.bodyStrong
                }
                TidloText {
                    Layout.fillWidth: true
                    text: root.preferences.explanations ? proxy.sentence : proxy.nobody
                    font: TidloType.small
                    color: TidloTheme.mutedText
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
