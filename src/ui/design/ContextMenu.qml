import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// The actions for the item that the menu was opened on.
T.Menu {
    id: root

    readonly property FormerFocus formerFocus: FormerFocus {}

    onAboutToShow: root.formerFocus.remember(root.parent.Window.activeFocusItem)
    onAboutToHide: root.formerFocus.giveBack()

    implicitWidth: Math.max(180, contentWidth + leftPadding + rightPadding)
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: 8
    padding: 5
    scale: Fit.scale
    transformOrigin: Item.TopLeft
    modal: true
    dim: false

    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
    }

    background: ContinuousRectangle {
        radius: 9
        color: TidloTheme.cardSurface
        borderColor: TidloTheme.controlBorder
        borderWidth: 1
    }
}
