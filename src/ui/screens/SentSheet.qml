import QtQuick
import QtQuick.Layouts
import Tidlo.Design
import Tidlo.Screens

/// What is sent to have scans explained, and the switch for it.
Sheet {
    id: root

    required property Disclosure disclosure
    required property Preferences preferences

    objectName: "sentSheet"
    title: root.disclosure.title

    contentItem: FocusScope { // qmllint disable deferred-property-id
        implicitWidth: 720
        implicitHeight: 560
        focus: true

        Keys.onEscapePressed: root.close()

        ColumnLayout {
            anchors.fill: parent
            anchors.margins: 22
            spacing: 14

            TidloText {
                Layout.fillWidth: true
                text: root.disclosure.title
                font: TidloType.system(18, Font.Bold, TidloType.scale)
                Accessible.role: Accessible.Heading
            }
            SpacedText {
                objectName: "sentSentence"
                Layout.fillWidth: true
                text: root.disclosure.sentence
                color: TidloTheme.mutedText
                spacing: 3
            }
            ContinuousRectangle {
                Layout.fillWidth: true
                Layout.fillHeight: true
                radius: 10
                color: TidloTheme.windowBackground
                opacity: root.disclosure.request === "" ? 0 : 1

                ScrollArea {
                    id: area

                    anchors.fill: parent
                    anchors.margins: 6
                    contentHeight: request.height
                    takesKeys: true

                    SelectableText {
                        id: request

                        objectName: "sentRequest"
                        x: 8
                        width: area.width - 16
                        topPadding: 8
                        bottomPadding: 8
                        text: root.disclosure.request
                        font: TidloType.small
                        color: TidloTheme.primaryText
                        wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
                        spacing: 3
                        name: root.disclosure.title
                    }
                }
            }
            TidloText {
                Layout.fillWidth: true
                visible: text !== ""
                text: root.disclosure.rest
                font: TidloType.small
                color: TidloTheme.mutedText
                wrapMode: Text.Wrap
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                SwitchButton {
                    objectName: "explainScans"
                    text: qsTr("Explain scans")
                    on: root.preferences.explanations
                    onClicked: root.preferences.explanations = !root.preferences.explanations
                }
                Item {
                    Layout.fillWidth: true
                }
                SecondaryButtonStyle {
                    objectName: "copySent"
                    visible: root.disclosure.request !== ""
                    text: qsTr("Copy")
                    onClicked: root.disclosure.copy()
                }
                PrimaryButtonStyle {
                    objectName: "sentDone"
                    focus: true
                    text: qsTr("Done")
                    onClicked: root.close()
                }
            }
        }
    }
}
