import QtQuick
import QtQuick.Dialogs

/// The desktop's dialog to choose a folder.
Item {
    id: root

    signal chosen(url folder)
    signal done

    FolderDialog {
        visible: true
        title: qsTr("Also look in")
        onAccepted: {
            root.chosen(selectedFolder);
            root.done();
        }
        onRejected: root.done()
    }
}
