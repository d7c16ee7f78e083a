import QtQuick
import Tidlo.Design

/// A question or a message that must be answered before anything else. Return presses the default button, Escape the
/// cancel button; without a cancel button, Escape presses the default button as well.
ModalPopup {
    id: root

    required property string message
    required property string defaultText
    /// Empty: there is no second button.
    property string cancelText: ""
    /// Whether the default button does what cannot easily be undone: then Return cancels. Needs a cancelText.
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
