import QtQuick
import Tidlo.Screens
import Tidlo.Shell

/// The screen of the current section.
FocusScope {
    id: root

    required property ShownState shown
    /// The corner radius of the window.
    property double cornerRadius: 0

    /// Moves the keyboard focus on from an item that Tab does not reach, such as a screen that has just been shown.
    function goOn(forward: bool) {
        const next = root.Window.activeFocusItem.nextItemInFocusChain(forward);
        if (next)
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    Keys.onTabPressed: root.goOn(true)
    Keys.onBacktabPressed: root.goOn(false)

    KeptScreen {
        id: scanningScreen

        isShown: root.shown.navigation.screen === Navigation.Scanning
        sourceComponent: scanning
    }

    KeptScreen {
        id: resultsScreen

        isShown: root.shown.navigation.screen === Navigation.Results
        sourceComponent: results
    }

    Loader {
        anchors.fill: parent
        focus: !scanningScreen.isShown && !resultsScreen.isShown
        sourceComponent: {
            switch (root.shown.navigation.screen) {
            case Navigation.Scanning:
            case Navigation.Results:
                return null;
            case Navigation.Report:
                return report;
            case Navigation.Settings:
                return settings;
            default:
                return landing;
            }
        }
    }

    // A loader of Qt 6.4 cannot load bound components, and in other components qmllint does not know "root".
    // qmllint disable unqualified
    Component {
        id: landing
        ScanLandingView {
            app: root.shown.app
            keptPaths: root.shown.keptPaths
            disclosure: root.shown.disclosure
            preferences: root.shown.preferences
            cornerRadius: root.cornerRadius
        }
    }
    Component {
        id: scanning
        ScanningView { progress: root.shown.progress }
    }
    Component {
        id: results
        ResultsView {
            findings: root.shown.findings
            items: root.shown.foundItems
            disclosure: root.shown.disclosure
            preferences: root.shown.preferences
            cornerRadius: root.cornerRadius
        }
    }
    Component {
        id: report
        ReportView {
            report: root.shown.report
            items: root.shown.stayedItems
            cornerRadius: root.cornerRadius
        }
    }
    Component {
        id: settings
        SettingsView {
            app: root.shown.app
            preferences: root.shown.preferences
            removal: root.shown.removal
            keptPaths: root.shown.keptPaths
            cornerRadius: root.cornerRadius
        }
    }
    // qmllint enable unqualified
}
