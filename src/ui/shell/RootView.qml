import QtQuick
import Tidlo.Design
import Tidlo.Screens
import Tidlo.Shell

/// The content of the window: the bar at the top, below it the rail, the sidebar and the screen, and the questions that
/// must be answered before anything else.
FocusScope {
    id: root

    required property ShownState shown
    /// The corner radius of the window.
    property double cornerRadius: 0
    readonly property alias chrome: chrome
    readonly property alias barHeight: topBar.height

    Binding {
        target: TidloTheme
        property: "preference"
        value: root.shown.preferences.theme
    }

    ContinuousRectangle {
        anchors.fill: parent
        radius: root.cornerRadius
        color: TidloTheme.windowBackground
    }

    ContinuousRectangle {
        anchors.fill: topBar
        radius: root.cornerRadius
        straightEdges: Qt.BottomEdge
        color: TidloTheme.topBarBackground
    }

    TopBar {
        id: topBar

        objectName: "topBar"
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        onThemeSwitched: root.shown.preferences.theme = TidloTheme.nextPreference
    }

    ContinuousRectangle {
        anchors.fill: rail
        radius: root.cornerRadius
        straightEdges: Qt.TopEdge | Qt.RightEdge
        color: TidloTheme.railBackground
    }

    IconRail {
        id: rail

        objectName: "rail"
        anchors.top: topBar.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        navigation: root.shown.navigation
    }

    StorageSidebar {
        id: sidebar

        objectName: "sidebar"
        anchors.top: topBar.bottom
        anchors.bottom: parent.bottom
        anchors.left: rail.right
        figures: root.shown.storage
    }

    Divider {
        id: divider

        anchors.top: topBar.bottom
        anchors.bottom: parent.bottom
        anchors.left: sidebar.right
        width: 1
        opacity: TidloTheme.isHighContrast ? 1 : TidloTheme.mixed(TidloTheme.darkness, 0.25, 0.7)
    }

    MainContent {
        objectName: "content"
        anchors.top: topBar.bottom
        anchors.bottom: parent.bottom
        anchors.left: divider.right
        anchors.right: parent.right
        focus: true
        shown: root.shown
        cornerRadius: root.cornerRadius
    }

    WindowChromeConfigurator {
        id: chrome

        width: 0
        height: 0
    }

    Connections {
        target: TidloTheme
        function onPreferenceChanged() { chrome.refresh(); }
        function onSchemeChanged() { chrome.refresh(); }
    }

    Alert {
        objectName: "moveAlert"
        visible: root.shown.app.showMoveToApplicationsPrompt
        windowRadius: root.cornerRadius
        title: qsTr("Move Tidlo to Applications?")
        message: qsTr("Tidlo is running outside your Applications folder. Move it there so it appears in Launchpad and works like a normal Mac app.")
        defaultText: qsTr("Move to Applications")
        cancelText: qsTr("Not now")
        onClosed: root.shown.app.showMoveToApplicationsPrompt = false
        onAccepted: root.shown.app.moveToApplicationsFolder()
        onRejected: root.shown.app.skipMoveToApplicationsPrompt()
    }

    Alert {
        objectName: "moveErrorAlert"
        visible: root.shown.app.showMoveToApplicationsError
        windowRadius: root.cornerRadius
        title: qsTr("Could not move Tidlo")
        message: root.shown.app.moveToApplicationsErrorMessage
        defaultText: qsTr("OK")
        onClosed: root.shown.app.showMoveToApplicationsError = false
    }

    Alert {
        objectName: "notPutBackAlert"
        visible: root.shown.report.notPutBack !== ""
        windowRadius: root.cornerRadius
        title: qsTr("Not everything was put back")
        message: root.shown.report.notPutBack
        defaultText: qsTr("OK")
        onClosed: root.shown.report.acknowledgeNotPutBack()
    }

    Alert {
        objectName: "sparedUnknownAlert"
        visible: root.shown.findings.isSparedUnknown
        windowRadius: root.cornerRadius
        title: qsTr("Nothing was moved")
        message: qsTr("What is never to be suggested cannot be read from the preferences. It could be among what is selected.")
        defaultText: qsTr("OK")
        onClosed: root.shown.findings.acknowledgeSparedUnknown()
    }

    Sheet {
        objectName: "setupSheet"
        visible: root.shown.app.showSetupWizard && !root.shown.app.showMoveToApplicationsError // Not both at once.
        windowRadius: root.cornerRadius
        title: qsTr("Tidlo setup")

        contentItem: SetupWizardView {
            focus: true
            app: root.shown.app
            preferences: root.shown.preferences
        }
    }
}
