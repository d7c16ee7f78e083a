import QtQuick
import Tidlo.Design

/// A page over the window that stays until it is closed. Escape does not close it: its content decides.
ModalPopup {
    padding: 0
    closePolicy: ModalPopup.NoAutoClose
}
