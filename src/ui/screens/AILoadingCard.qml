import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// A placeholder while the explanation is awaited.
CardModifier {
    id: root

    property bool pulse: false

    implicitHeight: row.implicitHeight + 28

    Accessible.role: Accessible.StaticText
    Accessible.name: title.text
    Accessible.description: detail.text

    Component.onCompleted: root.pulse = true

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 14
        spacing: 12

        Item {
            Layout.preferredWidth: 28
            Layout.preferredHeight: 28

            Gauge {
                anchors.fill: parent
                anchors.margins: -1.5
                lineWidth: 3
                color: TidloTheme.faded(TidloTheme.green, 0.18)
            }
            TurningArc {
                anchors.fill: parent
                anchors.margins: -1.5
                lineWidth: 3
                roundCaps: true
                from: 0
                to: 0.3
                color: TidloTheme.green
                bottomColor: TidloTheme.blue
            }
            Symbol {
                id: sparkles

                property double beat: 1

                anchors.centerIn: parent
                name: "sparkles"
                size: 11
                weight: Font.Bold
                color: TidloTheme.green
                opacity: 0.7
                scale: Motion.isReduced ? 1 : sparkles.beat

                SequentialAnimation {
                    objectName: "pulse"
                    running: root.pulse && !Motion.isReduced && root.visible && root.Sight.isSeen
                    loops: Animation.Infinite

                    NumberAnimation { target: sparkles; property: "beat"; from: 0.85; to: 1.2; duration: 800; easing: Motion.easeInOut }
                    NumberAnimation { target: sparkles; property: "beat"; from: 1.2; to: 0.85; duration: 800; easing: Motion.easeInOut }
                }
            }
        }
        Column {
            Layout.fillWidth: true
            spacing: 2

            TidloText {
                id: title

                text: qsTr("AI Storage Analysis in progress...")
                font: TidloType.bodyStrong
                Accessible.ignored: true
            }
            TidloText {
                id: detail

                width: parent.width
                text: qsTr("Analyzing project bloat, node_modules, and cache files with Gemini AI...")
                font: TidloType.small
                color: TidloTheme.mutedText
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
    }
}
