import QtQuick
import Tidlo.Screens
import Tidlo.Shell

/// The screen of the section that is shown.
FocusScope {
    id: root

    required property AppViewModel app
    required property Preferences preferences
    required property Navigation navigation
    /// Of the window's corners.
    property double cornerRadius: 0

    KeptScreen {
        id: scanningScreen

        isShown: root.navigation.screen === Navigation.Scanning
        sourceComponent: scanning
    }

    KeptScreen {
        id: resultsScreen

        isShown: root.navigation.screen === Navigation.Results
        sourceComponent: results
    }

    Loader {
        anchors.fill: parent
        focus: !scanningScreen.isShown && !resultsScreen.isShown
        sourceComponent: {
            switch (root.navigation.screen) {
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

    // A loader of Qt 6.4 takes no bound components, and without those qmllint cannot see what "root" is.
    // qmllint disable unqualified
    Component {
        id: landing
        ScanLandingView { app: root.app }
    }
    Component {
        id: scanning
        ScanningView { app: root.app }
    }
    Component {
        id: results
        ResultsView {
            app: root.app
            cornerRadius: root.cornerRadius
        }
    }
    Component {
        id: report
        ReportView {
            app: root.app
            cornerRadius: root.cornerRadius
        }
    }
    Component {
        id: settings
        SettingsView {
            app: root.app
            preferences: root.preferences
            cornerRadius: root.cornerRadius
        }
    }
    // qmllint enable unqualified
}
