import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// The actions for the item that the menu was opened on.
T.Menu {
    id: root

    readonly property FormerFocus formerFocus: FormerFocus {}

    /// Opens at a position in an item, and stays there when the item moves: a press is not to miss. Asked for by keys,
    /// its first line is the current one.
    function showAt(item: Item, x: double, y: double, byKeys: bool) {
        const window = item.Window.contentItem;
        const place = window.mapFromItem(item, x, y);
        root.popup(window, place.x, place.y);
        let first = 0;
        while (first < root.count - 1 && !root.itemAt(first).enabled)
            ++first;
        root.currentIndex = byKeys ? first : -1;
    }

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
