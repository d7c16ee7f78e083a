pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// Common base of alerts and sheets: modal inside the window, in front of a scrim that keeps the window's round
/// corners. The keyboard focus stays inside until it is closed, and then returns to where it was. Assistive technology
/// reads its title as its name.
T.Dialog {
    id: root

    required title
    /// The corner radius of the window, for the scrim.
    property double windowRadius: 10

    readonly property FormerFocus formerFocus: FormerFocus {}

    onAboutToShow: root.formerFocus.remember(root.parent.Window.activeFocusItem)
    onAboutToHide: root.formerFocus.giveBack()

    // Anchoring it there would apply the scale twice.
    parent: T.Overlay.overlay
    x: (parent.width - width) / 2
    // The height can change while it is being placed.
    y: (parent.height - implicitHeight) / 2
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    modal: true
    focus: true
    dim: true
    scale: Fit.scale

    T.Overlay.modal: ContinuousRectangle {
        radius: root.windowRadius * Fit.scale
        color: TidloTheme.faded("black", TidloTheme.mixed(TidloTheme.darkness, 0.5, 0.3))
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Math.min(160, Motion.longestFade); easing.type: Easing.OutCubic }
        NumberAnimation {
            property: "scale"
            from: (Motion.isReduced ? 1 : 0.96) * Fit.scale
            to: Fit.scale
            duration: Math.min(160, Motion.longestFade)
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Math.min(120, Motion.longestFade) }
    }

    background: ContinuousRectangle {
        radius: 14
        color: TidloTheme.cardSurface
        borderColor: TidloTheme.controlBorder
        borderWidth: 1
    }
}
