import QtQuick

/// A screen that is made ready while nothing else happens and is kept, so that it is there at once when it is shown.
Loader {
    id: root

    required property bool isShown

    anchors.fill: parent
    visible: root.isShown
    focus: root.isShown
    asynchronous: !root.isShown
}
