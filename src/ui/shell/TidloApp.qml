import QtQuick
import Tidlo.Design
import Tidlo.Screens
import Tidlo.Shell

/// The application's one window.
Window {
    id: window

    required property AppViewModel app
    required property Preferences preferences

    readonly property size leastContent: Qt.size(1350, 720)
    readonly property bool fillsScreen: visibility === Window.Maximized || visibility === Window.FullScreen
    readonly property double cornerRadius: fillsScreen || chrome.isNative ? 0 : 10

    title: qsTr("Tidlo — AI Storage Cleaner")
    // On a screen that is smaller the window opens as well, and its content scrolls.
    minimumWidth: Math.min(leastContent.width, Screen.desktopAvailableWidth)
    minimumHeight: Math.min(leastContent.height, Screen.desktopAvailableHeight)
    width: minimumWidth
    height: Math.min(860, Math.max(minimumHeight, Screen.desktopAvailableHeight - 80))
    color: "transparent"
    // From the start, since a window manager may not take a frame away without a trace.
    flags: chrome.isNative ? Qt.Window : Qt.Window | Qt.FramelessWindowHint
    visible: true

    WindowChromeConfigurator {
        id: chrome

        width: 0
        height: 0
    }

    Connections {
        target: TidloTheme
        function onSchemeChanged() { chrome.refresh(); }
    }

    Flickable {
        anchors.fill: parent
        contentWidth: Math.max(width, window.leastContent.width)
        contentHeight: Math.max(height, window.leastContent.height)
        interactive: contentWidth > width || contentHeight > height
        boundsBehavior: Flickable.StopAtBounds

        // Whatever does not take a drag lets the window be moved by it.
        DragHandler {
            target: null
            enabled: !chrome.isNative
            grabPermissions: PointerHandler.TakeOverForbidden
            onActiveChanged: if (active) window.startSystemMove()
        }
        TapHandler {
            enabled: !chrome.isNative
            gesturePolicy: TapHandler.DragThreshold
            onDoubleTapped: (eventPoint) => {
                if (eventPoint.position.y < 46)
                    window.fillsScreen ? window.showNormal() : window.showMaximized();
            }
        }

        RootView {
            anchors.fill: parent
            focus: true
            app: window.app
            preferences: window.preferences
            cornerRadius: window.cornerRadius
        }
    }

    WindowButtons {
        visible: !chrome.isNative
        x: 20
        y: (46 - height) / 2
        window: window
    }

    WindowEdges {
        anchors.fill: parent
        visible: !chrome.isNative && !window.fillsScreen
        window: window
    }
}
