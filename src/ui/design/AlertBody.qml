import QtQuick
import QtQuick.Layouts
import Tidlo.Design

/// The text of an alert and its buttons.
ColumnLayout {
    id: root

    required property string title
    required property string message
    required property string defaultText
    required property string cancelText
    required property bool isDestructive

    signal accepted
    signal rejected

    /// Gives the keyboard focus to the button that Return may press at once.
    function focusButton() {
        const button = root.isDestructive ? cancelButton : defaultButton;
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: 10

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.message

    Keys.onEscapePressed: root.cancelText !== "" ? root.rejected() : root.accepted()

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
        font: TidloType.system(13, Font.Normal, TidloType.scale)
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

            objectName: "cancelButton"
            Layout.fillWidth: true
            visible: root.cancelText !== ""
            text: root.cancelText
            sidePadding: 12
            onClicked: root.rejected()
        }
        PrimaryButtonStyle {
            id: defaultButton

            objectName: "defaultButton"
            Layout.fillWidth: true
            visible: !root.isDestructive
            text: root.defaultText
            sidePadding: 12
            onClicked: root.accepted()
        }
        DangerButtonStyle {
            objectName: "dangerButton"
            Layout.fillWidth: true
            visible: root.isDestructive
            text: root.defaultText
            sidePadding: 12
            onClicked: root.accepted()
        }
    }
}
