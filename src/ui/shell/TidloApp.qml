import QtQuick
import QtQuick.Templates as T
import Tidlo.Design
import Tidlo.Screens
import Tidlo.Shell

/// The application's one window.
Window {
    id: window

    required property ShownState shown
    /// The size of the screen without panels.
    required property size screenRoom

    readonly property size leastContent: Qt.size(1350, 720)
    /// On a smaller screen everything is drawn smaller, as long as it stays readable; below that it scrolls.
    readonly property double contentScale: Math.max(0.75, Math.min(1, width / leastContent.width, height / leastContent.height))
    /// Texts fit if they are up to a quarter larger; beyond that there is more to scroll.
    readonly property double roomForTexts: Math.max(1, TidloType.scale / 1.25)
    readonly property bool isFramed: root.chrome.isNative
    readonly property bool fillsScreen: visibility === Window.Maximized || visibility === Window.FullScreen
    readonly property double cornerRadius: fillsScreen || isFramed ? 0 : 10
    /// Whether a modal question is open.
    readonly property bool isAsking: T.Overlay.overlay ? T.Overlay.overlay.visible : false
    /// In front of such a question, so that the window can still be moved and closed.
    readonly property double front: T.Overlay.overlay ? T.Overlay.overlay.z + 1 : 1
    /// Behind everything that takes a press.
    readonly property double back: isAsking ? front : 0

    function clearSelection() {
        const text = window.activeFocusItem as TextEdit;
        if (text)
            text.deselect();
    }

    function zoom() {
        fillsScreen ? showNormal() : showMaximized();
    }

    Binding {
        target: Fit
        property: "scale"
        value: window.contentScale
    }

    title: qsTr("Tidlo — AI Storage Cleaner")
    minimumWidth: Math.min(leastContent.width, screenRoom.width)
    minimumHeight: Math.min(leastContent.height, screenRoom.height)
    width: minimumWidth
    height: Math.min(860, Math.max(minimumHeight, screenRoom.height - 80))
    color: "transparent"
    // From the start, since a window manager may not remove a frame cleanly later.
    flags: isFramed ? Qt.Window : Qt.Window | Qt.FramelessWindowHint
    visible: true

    WindowHandle {
        anchors.fill: parent
        onPressed: window.clearSelection()
    }
    WindowHandle {
        z: window.back
        visible: !window.isFramed
        y: -scroller.contentY
        width: parent.width
        height: root.barHeight * window.contentScale
        onPressed: window.clearSelection()
        onDoubleClicked: window.zoom()
    }
    WindowEdges {
        z: window.back
        anchors.fill: parent
        visible: !window.isFramed && !window.fillsScreen
        shownScale: window.contentScale
    }

    ScrollArea {
        id: scroller

        anchors.fill: parent
        contentWidth: root.width * root.scale
        contentHeight: root.height * root.scale
        T.ScrollBar.horizontal: OverlayScrollBar {}

        RootView {
            id: root

            width: Math.max(window.width / window.contentScale, window.leastContent.width * window.roomForTexts)
            height: Math.max(window.height / window.contentScale, window.leastContent.height * window.roomForTexts)
            scale: window.contentScale
            transformOrigin: Item.TopLeft
            focus: true
            shown: window.shown
            cornerRadius: window.cornerRadius
        }
    }

    WindowButtons {
        z: window.front
        visible: !window.isFramed
        x: 20 * scale - scroller.contentX
        y: (root.barHeight - height) / 2 * scale - scroller.contentY
        scale: window.contentScale
        transformOrigin: Item.TopLeft
        window: window
        onZoomRequested: window.zoom()
        onReached: scroller.scrollTo(0, 0)
    }
}
