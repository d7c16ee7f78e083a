import QtQuick
import Tidlo.Design

/// A page that lies over the window until it is done with. Escape does not close it: what is on it decides.
ModalPopup {
    padding: 0
    closePolicy: ModalPopup.NoAutoClose
}
