import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "SettingsView"
    view: Component {
        SettingsView {
            anchors.fill: parent
            app: demo.app
            preferences: demo.preferences
        }
    }

    function test_says_everything_in_this_order() {
        compare(demo.texts(shown), ["Settings", "AI proxy connected", "Appearance & Theme",
            "Choose your preferred color scheme for Tidlo.", "Dark Mode", "Light Mode", "Match System",
            "Tidlo AI Server Proxy", "Powered by Google Gemini 1.5 Flash.", "Server Proxy Status: Active",
            "All AI requests are processed securely via localhost. No local API key setup required.",
            "Uninstall Tidlo", "Remove the installed application, Tidlo preferences, and saved setup state.",
            "Uninstall completely"]);
        compare(demo.symbols(shown), ["moon.fill", "sun.max.fill", "laptopcomputer", "checkmark.seal.fill"]);
    }

    function test_a_first_launch_has_the_dark_theme_chosen() {
        verify(item("theme-dark").selected);
        verify(!item("theme-light").selected);
        verify(!item("theme-system").selected);
    }

    function test_a_press_stores_the_theme_data() {
        return [{ tag: "light" }, { tag: "system" }, { tag: "dark" }];
    }

    function test_a_press_stores_the_theme(data) {
        mouseClick(item("theme-" + data.tag));
        compare(demo.preferences.theme, data.tag);
        verify(item("theme-" + data.tag).selected);
        mouseClick(item("theme-" + data.tag));
        compare(demo.preferences.theme, data.tag);
    }

    function test_an_unknown_theme_chooses_none() {
        demo.preferences.theme = "sepia";
        for (const theme of ["dark", "light", "system"])
            verify(!item("theme-" + theme).selected);
    }

    function test_a_chosen_theme_is_set_off() {
        const chosen = item("theme-dark").background, other = item("theme-light").background;
        compare(chosen.borderWidth, 2);
        compareColor(chosen.color, 0.388, 0.682, 0.718, 0.16);
        compare(other.borderWidth, 1);
        compareColor(other.color, 0.098, 0.153, 0.169);
        compareColor(other.borderColor, 1, 1, 1, 0.12);
    }

    function test_cancelling_the_uninstallation_leaves_everything_as_it_is_data() {
        return [
            { tag: "button", cancel: () => mouseClick(findChild(alert().contentItem, "cancelButton")) },
            { tag: "escape", cancel: () => keyClick(Qt.Key_Escape) },
            { tag: "return, since what is destructive is no default", cancel: () => keyClick(Qt.Key_Return) }
        ];
    }

    function alert() {
        return item("uninstallAlert");
    }

    function test_cancelling_the_uninstallation_leaves_everything_as_it_is(data) {
        const button = item("uninstall");
        button.forceActiveFocus(Qt.TabFocusReason);
        mouseClick(button);
        tryVerify(() => alert().opened);
        verify(shown.showUninstallConfirmation);
        compare(demo.texts(alert().contentItem), ["Uninstall Tidlo?",
            "Tidlo will quit, move the app to Trash, and remove its preferences and saved setup state.", "Cancel",
            "Uninstall completely"]);
        data.cancel();
        tryVerify(() => !alert().visible);
        verify(!shown.showUninstallConfirmation);
        verify(button.activeFocus, "the keyboard goes back to where it was");
    }
}
