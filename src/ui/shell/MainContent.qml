pragma ComponentBehavior: Bound
import QtQuick
import Tidlo.Screens
import Tidlo.Shell

/// The screen of the section that is shown.
FocusScope {
    id: root

    required property AppViewModel app
    required property Navigation navigation

    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: {
            switch (root.navigation.screen) {
            case Navigation.Scanning:
                return scanning;
            case Navigation.Results:
                return results;
            case Navigation.Report:
                return report;
            case Navigation.Settings:
                return settings;
            default:
                return landing;
            }
        }
    }

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
        ResultsView { app: root.app }
    }
    Component {
        id: report
        ReportView { app: root.app }
    }
    Component {
        id: settings
        SettingsView { app: root.app }
    }
}
