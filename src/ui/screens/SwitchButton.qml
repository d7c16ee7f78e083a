import QtQuick
import Tidlo.Design

/// A switch with its name beside it.
PlainButton {
    id: root

    required property bool on
    /// The same as a number, animated from 0 to 1 and back.
    property double share: root.on ? 1 : 0

    Behavior on share {
        enabled: !Motion.isReduced
        NumberAnimation { duration: 160; easing: Motion.easeInOut }
    }

    cornerRadius: 10
    checkable: true
    checked: root.on
    onToggled: root.checked = Qt.binding(() => root.on) // The owner of the setting decides whether it is on, not the
                                                        // button.

    contentItem: Row { // qmllint disable deferred-property-id
        spacing: 10

        Rectangle {
            id: track

            width: 38
            height: 22
            radius: height / 2
            color: TidloTheme.blended(TidloTheme.controlSurface, TidloTheme.green, root.share)
            border.width: 1
            border.color: TidloTheme.blended(TidloTheme.mutedText, TidloTheme.green, root.share)

            Rectangle {
                x: 3 + root.share * (track.width - width - 6)
                y: 3
                width: 16
                height: 16
                radius: 8
                color: TidloTheme.blended(TidloTheme.mutedText, TidloTheme.accentLabel, root.share)
            }
        }
        TidloText {
            anchors.verticalCenter: track.verticalCenter
            text: root.text
            font: TidloType.bodyStrong
            Accessible.ignored: true
        }
    }
}
