import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// The actions for the item that the menu was opened on.
T.Menu {
    id: root

    readonly property FormerFocus formerFocus: FormerFocus {}

    /// What it was opened on. It closes when that is gone.
    property Item subject

    /// Opens at a position in an item. It stays there when the item moves, so that a press hits the line below the
    /// pointer. If keys ask for it, its first line is the current one.
    function showAt(item: Item, x: double, y: double, byKeys: bool) {
        const window = item.Window.contentItem;
        const place = window.mapFromItem(item, x, y);
        root.subject = item;
        root.popup(window, place.x, place.y);
        let first = 0;
        while (first < root.count - 1 && !root.itemAt(first).enabled)
            ++first;
        root.currentIndex = byKeys ? first : -1;
    }

    onSubjectChanged: {
        if (!root.subject)
            root.close();
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
