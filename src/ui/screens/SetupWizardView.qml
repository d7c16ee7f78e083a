import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// The first run: what the application is, and one button.
FocusScope {
    id: root

    required property AppViewModel app
    required property Preferences preferences

    implicitWidth: 640 * TidloType.scale
    implicitHeight: 500 * TidloType.scale

    RowLayout {
        id: bar

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 22
        spacing: 12

        TidloLogo {
            size: 36
        }
        Column {
            Layout.fillWidth: true

            TidloText {
                text: qsTr("Tidlo setup")
                font: TidloType.system(18, Font.Bold, TidloType.scale)
                Accessible.role: Accessible.Heading
            }
            TidloText {
                text: qsTr("Safe storage cleanup for Mac")
                font: TidloType.small
                color: TidloTheme.mutedText
            }
        }
        StatusPill {
            text: qsTr("Ready to use")
            pillColor: TidloTheme.green
        }
    }

    Rectangle {
        id: rule

        anchors.top: bar.bottom
        anchors.topMargin: 22
        anchors.left: parent.left
        anchors.right: parent.right
        height: 1
        color: TidloTheme.controlBorder
    }

    Item {
        anchors.top: rule.bottom
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 470 * TidloType.scale)

        Column {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            spacing: 16

            TidloLogo {
                anchors.horizontalCenter: parent.horizontalCenter
                size: 84
            }
            TidloText {
                width: parent.width
                text: qsTr("Clean with context, not guesses")
                font: TidloType.system(30, Font.Bold, TidloType.scale)
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.Heading
            }
            SpacedText {
                width: parent.width
                text: qsTr("Tidlo scans local metadata: names, sizes and dates, never what your files hold. Chat databases are protected, and what you tick goes to the Trash.")
                color: TidloTheme.mutedText
                spacing: 4
                horizontalAlignment: Text.AlignHCenter
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 10

                LandingTrustPill { symbol: "doc.text.magnifyingglass"; title: qsTr("Metadata scan") }
                LandingTrustPill { symbol: "shield.checkered"; title: qsTr("Protected items") }
            }
            PrimaryButtonStyle {
                objectName: "getStarted"
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Get Started")
                focus: true
                onClicked: {
                    root.preferences.setupCompleted = true;
                    root.app.showSetupWizard = false;
                }
            }
        }
    }
}
