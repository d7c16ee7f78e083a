import QtQuick
import Tidlo.Design
import Tidlo.Screens

/// A finding: what it is, how safe it is to move it, how large it is, and whether it is ticked.
PlainButton {
    id: root

    required property string title
    required property string detail
    required property string symbol
    required property int symbolHue
    required property string risk
    required property int riskHue
    required property int badgeHue
    required property string sizeText
    required property double share
    required property bool ticked
    required property bool toggleable
    property double tickScale: 1
    property bool isMade: false

    Component.onCompleted: root.isMade = true
    onTickedChanged: {
        if (root.isMade)
            tick.restart();
    }

    NumberAnimation {
        id: tick

        target: root
        property: "tickScale"
        from: 0.7
        to: 1
        duration: Motion.toggle.duration
        easing: Motion.toggle.easing
    }

    /// Its menu is requested at this position in it, by the keyboard or the pointer.
    signal menuAsked(double x, double y, bool byKeys)
    /// The person wants to see its items.
    signal inspected

    leftPadding: 16
    rightPadding: 16
    topPadding: 12
    bottomPadding: 12
    cornerRadius: 14
    text: root.title
    checkable: true
    checked: root.ticked
    onToggled: root.checked = Qt.binding(() => root.ticked) // The state owner decides whether it is ticked, not the
                                                            // button.

    Accessible.name: root.title + ", " + root.sizeText + ", " + root.risk
    Accessible.description: root.detail

    function askByKeys() {
        root.menuAsked(root.leftPadding, root.height / 2, true);
    }

    Keys.onMenuPressed: root.askByKeys()

    // For keyboards without a menu key.
    Shortcut {
        enabled: root.activeFocus
        sequence: "Shift+F10"
        onActivated: root.askByKeys()
    }

    MenuArea {
        onAsked: (x, y) => root.menuAsked(x, y, false)
    }

    background: ContinuousRectangle {
        radius: 14
        color: TidloTheme.cardSurface
    }

    // Not a layout: its texts know their width from the start, and are shaped once. Nobody replaces this item, so it
    // need not be deferred.
    contentItem: Item { // qmllint disable deferred-property-id
        implicitHeight: Math.max(words.implicitHeight, figures.implicitHeight)

        Symbol {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            name: root.ticked ? "checkmark.square.fill" : "square"
            size: 18
            color: root.ticked ? TidloTheme.green : TidloTheme.mutedText
            opacity: root.toggleable ? 1 : 0.5
            scale: root.tickScale
        }
        Item {
            id: category

            anchors.verticalCenter: parent.verticalCenter
            x: box.width + 12
            width: 24
            height: 24

            Symbol {
                anchors.centerIn: parent
                name: root.symbol
                size: 16
                weight: Font.DemiBold
                color: TidloTheme.hues[root.symbolHue]
            }
        }
        Column {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            x: category.x + category.width + 12
            width: root.availableWidth - words.x - 12 - figures.width
            spacing: 3

            TidloText {
                width: words.width
                text: root.title
                font: TidloType.section
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            TidloText {
                width: words.width
                bottomPadding: 4
                text: root.detail
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
            SizeBar {
                width: words.width
                share: root.share
                barColor: TidloTheme.hues[root.riskHue]
            }
        }
        Column {
            id: figures

            anchors.verticalCenter: parent.verticalCenter
            x: root.availableWidth - figures.width
            width: Math.max(128, figures.implicitWidth)
            spacing: 6

            TidloText {
                anchors.right: parent.right
                text: root.sizeText
                font: TidloType.section
                color: TidloTheme.hues[root.riskHue]
                Accessible.ignored: true
            }
            StatusPill {
                anchors.right: parent.right
                text: root.risk
                pillColor: TidloTheme.hues[root.badgeHue]
                Accessible.ignored: true
            }
        }
    }
}
