import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// Content that may be larger than the room for it: the wheel and the keys scroll it, a bar shows the position, and an
/// item that gets the keyboard focus is scrolled into view. A drag does not scroll; it is left to the window.
Flickable {
    id: root

    /// Whether Tab stops here when there is something to scroll: for content that takes no keys itself.
    property bool takesKeys: false

    /// Scrolls just far enough to show the whole of \a item, which is part of the content.
    function reveal(item: Item) {
        const place = item.mapToItem(root.contentItem, 0, 0, item.width, item.height);
        const nearest = (position, size, shown, room) => Math.min(position, Math.max(shown, position + size - room));
        scrollTo(nearest(place.x, place.width, root.contentX, root.width),
                 nearest(place.y, place.height, root.contentY, root.height));
    }

    function scrollTo(x: double, y: double) {
        root.contentX = Math.max(0, Math.min(x, root.contentWidth - root.width));
        root.contentY = Math.max(0, Math.min(y, root.contentHeight - root.height));
    }

    function scrollBy(x: double, y: double) {
        scrollTo(root.contentX + x, root.contentY + y);
    }

    function holds(item: Item): bool {
        return item !== null && (item === root.contentItem || holds(item.parent));
    }

    clip: true
    interactive: false
    activeFocusOnTab: root.takesKeys && root.contentHeight > root.height
    T.ScrollBar.vertical: OverlayScrollBar {}

    Keys.onUpPressed: root.scrollBy(0, -60)
    Keys.onDownPressed: root.scrollBy(0, 60)
    Keys.onPressed: (event) => {
        event.accepted = true;
        if (event.key === Qt.Key_PageUp)
            root.scrollBy(0, -0.9 * root.height);
        else if (event.key === Qt.Key_PageDown)
            root.scrollBy(0, 0.9 * root.height);
        else if (event.key === Qt.Key_Home)
            root.scrollTo(root.contentX, 0);
        else if (event.key === Qt.Key_End)
            root.scrollTo(root.contentX, root.contentHeight);
        else
            event.accepted = false;
    }

    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem;
            if (item !== root && root.holds(item) && item.activeFocusOnTab)
                root.reveal(item);
        }
    }

    // A notch of a wheel is 120 units.
    WheelHandler {
        enabled: root.contentHeight > root.height
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: (event) => root.scrollBy(0, event.hasPixelDelta ? -event.pixelDelta.y : -event.angleDelta.y / 2)
    }
    WheelHandler {
        enabled: root.contentWidth > root.width
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        orientation: Qt.Horizontal
        onWheel: (event) => root.scrollBy(event.hasPixelDelta ? -event.pixelDelta.x : -event.angleDelta.x / 2, 0)
    }

    FocusRing {
        parent: root
        anchors.margins: 3
        visible: root.KeyFocus.isVisual && root.activeFocus
    }
}
