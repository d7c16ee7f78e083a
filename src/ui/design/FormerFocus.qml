import QtQuick
import QtQuick.Templates as T

/// Remembers which item has the keyboard focus while something else takes it, and gives it back, with the focus ring if
/// it was shown.
QtObject {
    id: root

    property Item item
    property int reason

    function remember(item: Item) {
        root.item = item;
        root.reason = Qt.PopupFocusReason;
        const control = item as T.Control;
        if (control) {
            if (control.visualFocus)
                root.reason = Qt.TabFocusReason;
        }
    }

    function giveBack() {
        if (root.item)
            root.item.forceActiveFocus(root.reason);
    }
}
