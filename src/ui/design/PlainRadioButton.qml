import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// As PlainButton, but one of several of which one is chosen. It is a type of its own because the role that assistive
/// technology sees follows from the control's template.
T.RadioButton {
    id: root

    /// The corner radius of the focus ring.
    property double cornerRadius: 9

    implicitWidth: Math.ceil(implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: style.opacityOfButton

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
