import QtQuick
import Tidlo.Design

/// A question or a piece of news that must be answered first. Return presses the default button, Escape the one that
/// cancels; without one of its own, the default button cancels as well.
ModalPopup {
    id: root

    required property string message
    required property string defaultText
    /// No second button if empty.
    property string cancelText: ""
    /// Whether the default button does what cannot be taken back easily: then Return cancels. Needs a cancelText.
    property bool isDestructive: false

    width: 360 * TidloType.scale
    padding: 24
    closePolicy: ModalPopup.NoAutoClose
    onOpened: (root.contentItem as AlertBody).focusButton()

    contentItem: AlertBody {
        title: root.title
        message: root.message
        defaultText: root.defaultText
        cancelText: root.cancelText
        isDestructive: root.isDestructive
        onAccepted: root.accept()
        onRejected: root.reject()
    }
}
