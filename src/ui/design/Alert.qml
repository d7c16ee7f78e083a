import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// A question or a piece of news that must be answered first. Return presses the default button, Escape the one that
/// cancels; without one of its own, the default button cancels as well.
ModalPopup {
    id: root

    required property string title
    required property string message
    required property string defaultText
    /// No second button if empty.
    property string cancelText: ""
    /// Whether the default button does what cannot be taken back easily: then Return does not press it by itself.
    property bool isDestructive: false

    signal accepted
    signal cancelled

    function accept() {
        root.close();
        root.accepted();
    }

    function cancel() {
        root.close();
        root.cancelled();
    }

    width: 360
    padding: 24
    closePolicy: ModalPopup.NoAutoClose

    onOpened: root.isDestructive && root.cancelText !== "" ? cancelButton.forceActiveFocus()
                                                            : defaultButton.forceActiveFocus()

    contentItem: FocusScope {
        implicitHeight: column.implicitHeight

        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.title
        Accessible.description: root.message

        Keys.onEscapePressed: root.cancelText !== "" ? root.cancel() : root.accept()

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 10

            TidloLogo {
                Layout.alignment: Qt.AlignHCenter
                size: 48
            }
            TidloText {
                Layout.fillWidth: true
                Layout.topMargin: 4
                text: root.title
                font: TidloType.section
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            TidloText {
                Layout.fillWidth: true
                text: root.message
                font: TidloType.system(13, Font.Normal)
                color: TidloTheme.mutedText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            RowLayout {
                Layout.fillWidth: true
                Layout.topMargin: 8
                spacing: 10

                SecondaryButtonStyle {
                    id: cancelButton

                    Layout.fillWidth: true
                    visible: root.cancelText !== ""
                    text: root.cancelText
                    sidePadding: 12
                    onClicked: root.cancel()
                }
                PrimaryButtonStyle {
                    id: defaultButton

                    Layout.fillWidth: true
                    visible: !root.isDestructive
                    text: root.defaultText
                    sidePadding: 12
                    onClicked: root.accept()
                }
                DangerButtonStyle {
                    Layout.fillWidth: true
                    visible: root.isDestructive
                    text: root.defaultText
                    sidePadding: 12
                    onClicked: root.accept()
                }
            }
        }
    }
}
