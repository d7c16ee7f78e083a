import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// A button without any looks but its content, with a focus ring for the keyboard. Space and Return press it. With
/// checkable it is a check box to assistive technology.
T.AbstractButton {
    id: root

    /// The corner radius of the focus ring.
    property double cornerRadius: 9

    implicitWidth: Math.ceil(implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: style.opacityOfButton

    Accessible.role: root.checkable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
    Accessible.onToggleAction: root.clicked()

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    PlainStyle {
        id: style

        button: root
        cornerRadius: root.cornerRadius
    }
}
