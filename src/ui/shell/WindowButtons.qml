pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design

/// Close, minimise and zoom, for systems that do not draw these buttons themselves.
Row {
    id: root

    required property Window window

    /// One of them got the keyboard focus.
    signal reached

    /// The window should fill the screen, or return to its size.
    signal zoomRequested

    spacing: 8

    HoverHandler {
        id: pointer
    }

    component Disc: PlainButton {
        id: disc

        required property color discColor
        required property string glyph

        implicitWidth: 12
        implicitHeight: 12
        cornerRadius: 6
        onActiveFocusChanged: if (disc.activeFocus) root.reached()

        background: Rectangle {
            radius: 6
            color: root.window.active || pointer.hovered ? disc.discColor
                                                         : TidloTheme.faded(TidloTheme.systemGray, 0.45)
        }
        contentItem: Text {
            visible: pointer.hovered || disc.visualFocus
            text: disc.glyph
            font: TidloType.system(10, Font.Bold)
            color: Qt.rgba(0, 0, 0, 0.55)
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }

    Disc {
        objectName: "closeButton"
        text: qsTr("Close")
        discColor: "#ff5f57"
        glyph: "×"
        onClicked: root.window.close()
    }
    Disc {
        objectName: "minimiseButton"
        text: qsTr("Minimise")
        discColor: "#febc2e"
        glyph: "−"
        onClicked: root.window.showMinimized()
    }
    Disc {
        objectName: "zoomButton"
        text: qsTr("Zoom")
        discColor: "#28c840"
        glyph: "+"
        onClicked: root.zoomRequested()
    }
}
