pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// The narrow column of buttons that switch between the sections.
Item {
    id: root

    required property Navigation navigation

    implicitWidth: 58

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Sections")

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        topPadding: 18
        spacing: 16

        Repeater {
            id: rail

            model: root.navigation.rail

            RailButton {
                required property int index
                required property railItem modelData

                objectName: "rail" + index
                symbol: modelData.symbol
                text: modelData.title
                active: index === root.navigation.activeItem
                onClicked: root.navigation.press(index)
                Keys.onDownPressed: if (index + 1 < rail.count) rail.itemAt(index + 1).forceActiveFocus(Qt.TabFocusReason)
                Keys.onUpPressed: if (index > 0) rail.itemAt(index - 1).forceActiveFocus(Qt.BacktabFocusReason)
            }
        }
    }

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        name: "shield.lefthalf.filled"
        size: 15
        color: TidloTheme.railSymbol
    }
}
