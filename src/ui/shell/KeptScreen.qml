import QtQuick

/// A screen that is loaded while the application is idle and kept, so that it appears at once.
Loader {
    id: root

    required property bool isShown

    anchors.fill: parent
    visible: root.isShown
    focus: root.isShown
    asynchronous: !root.isShown
}
