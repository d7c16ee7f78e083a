import QtQuick
import QtQuick.Templates as T
import Tidlo.Design
import Tidlo.Screens
import Tidlo.Shell

/// The application's one window.
Window {
    id: window

    required property ShownState shown
    /// What the screen has for windows.
    required property size screenRoom

    readonly property size leastContent: Qt.size(1350, 720)
    readonly property bool isFramed: root.chrome.isNative
    readonly property bool fillsScreen: visibility === Window.Maximized || visibility === Window.FullScreen
    readonly property double cornerRadius: fillsScreen || isFramed ? 0 : 10
    /// Something must be answered first.
    readonly property bool isAsking: T.Overlay.overlay ? T.Overlay.overlay.visible : false
    /// In front of that: meanwhile the window can still be moved and closed.
    readonly property double front: T.Overlay.overlay ? T.Overlay.overlay.z + 1 : 1
    /// What holds the window is behind everything that takes a press.
    readonly property double back: isAsking ? front : 0

    function zoom() {
        fillsScreen ? showNormal() : showMaximized();
    function clearSelection() {
        const text = window.activeFocusItem as TextEdit;
        if (text)
            text.deselect();
    }

    }

    title: qsTr("Tidlo — AI Storage Cleaner")
    // On a screen that is smaller the window opens as well, and its content scrolls.
    minimumWidth: Math.min(leastContent.width, screenRoom.width)
    minimumHeight: Math.min(leastContent.height, screenRoom.height)
    width: minimumWidth
    height: Math.min(860, Math.max(minimumHeight, screenRoom.height - 80))
    color: "transparent"
    // From the start, since a window manager may not take a frame away without a trace.
    flags: isFramed ? Qt.Window : Qt.Window | Qt.FramelessWindowHint
    visible: true

    WindowHandle {
        anchors.fill: parent
    }
    WindowHandle {
        z: window.back
        visible: !window.isFramed
        y: -scroller.contentY
        width: parent.width
        height: root.barHeight
        onPressed: window.clearSelection()
        onPressed: window.clearSelection()
        onDoubleClicked: window.zoom()
    }
    WindowEdges {
        z: window.back
        anchors.fill: parent
        visible: !window.isFramed && !window.fillsScreen
    }

    ScrollArea {
        id: scroller

        anchors.fill: parent
        contentWidth: Math.max(width, window.leastContent.width)
        contentHeight: Math.max(height, window.leastContent.height)

        RootView {
            id: root

            anchors.fill: parent
            focus: true
            shown: window.shown
            cornerRadius: window.cornerRadius
        }
    }

    WindowButtons {
        z: window.front
        visible: !window.isFramed
        x: 20 - scroller.contentX
        y: (root.barHeight - height) / 2 - scroller.contentY
        window: window
        onZoomRequested: window.zoom()
        onReached: scroller.scrollTo(0, 0)
    }
}
