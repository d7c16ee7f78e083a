import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// Where everything starts: one large button, and what it promises.
Item {
    id: root

    required property AppViewModel app

    HeaderRow {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Scan")

        StatusPill {
            text: qsTr("AI explanations on")
            pillColor: TidloTheme.systemMint
        }
    }

    Item {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 680)

        Column {
            anchors.centerIn: parent
            spacing: 20

            ScanButton {
                objectName: "scanButton"
                anchors.horizontalCenter: parent.horizontalCenter
                onClicked: root.app.startScan()
            }
            TidloText {
                anchors.horizontalCenter: parent.horizontalCenter
                topPadding: 8
                text: qsTr("AI-assisted deep clean")
                font: TidloType.system(28, Font.Bold)
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.Heading
            }
            SpacedText {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, 460)
                text: qsTr("Understands your projects, detects duplicates, and explains every decision before cleanup.")
                color: TidloTheme.secondaryLabel
                spacing: 4
                horizontalAlignment: Text.AlignHCenter
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 10

                LandingTrustPill { symbol: "lock.shield"; title: qsTr("Metadata only") }
                LandingTrustPill { symbol: "trash"; title: qsTr("Trash first") }
                LandingTrustPill { symbol: "sparkles"; title: qsTr("AI optional") }
            }
            PrimaryButtonStyle {
                objectName: "scanMyMac"
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("SCAN MY MAC")
                onClicked: root.app.startScan()
            }
        }
    }
}
