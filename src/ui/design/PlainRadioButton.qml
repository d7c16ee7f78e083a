import QtQuick
import QtQuick.Templates as T
import Tidlo.Design

/// As PlainButton, but one of several of which one is chosen. What a control is to those who hear it, its template alone
/// says.
T.RadioButton {
    id: root

    /// Corners of the focus ring.
    property double cornerRadius: 9

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
    Accessible.onToggleAction: root.clicked()

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    HoverHandler {
        cursorShape: root.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
    }

    FocusRing {
        visible: root.visualFocus
        cornerRadius: root.cornerRadius
    }
}
