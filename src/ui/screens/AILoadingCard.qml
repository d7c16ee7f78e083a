import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// Stands where the explanation will be, while it is awaited.
CardModifier {
    id: root

    property double rotationAngle: 0
    property bool pulse: false
    readonly property bool moves: root.visible && root.Window.visibility !== Window.Minimized

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
            Gauge {
                anchors.fill: parent
                anchors.margins: -1.5
                lineWidth: 3
                roundCaps: true
                from: 0
                to: 0.3
                color: TidloTheme.green
                bottomColor: TidloTheme.blue

                RotationAnimator on rotation {
                    objectName: "turn"
                    running: root.moves
                    from: 0
                    to: 360
                    duration: 1200
                    loops: Animation.Infinite
                }
            }
            Symbol {
                anchors.centerIn: parent
                name: "sparkles"
                size: 11
                weight: Font.Bold
                color: TidloTheme.green
                opacity: 0.7

                SequentialAnimation on scale {
                    running: root.pulse && root.moves
                    loops: Animation.Infinite

                    NumberAnimation { from: 0.85; to: 1.2; duration: 800; easing: Motion.easeInOut }
                    NumberAnimation { from: 1.2; to: 0.85; duration: 800; easing: Motion.easeInOut }
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
