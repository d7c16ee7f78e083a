import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// Contents that may be higher than the room there is: they scroll, with a bar that shows where.
Flickable {
    id: root

    /// Scrolls no further than it takes to show the whole of \a item, one of the contents.
    function reveal(item: Item) {
        const top = item.mapToItem(root.contentItem, 0, 0).y;
        const lowest = top + item.height - root.height;
        root.contentY = Math.max(0, Math.min(top, Math.max(root.contentY, lowest)));
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: OverlayScrollBar {}
}
