import QtQuick
import Tidlo.Design
import Tidlo.Shell

ViewCase {
    name: "RootView"
    view: Component {
        RootView {
            anchors.fill: parent
            app: demo.app
            preferences: demo.preferences
        }
    }

    function test_the_parts_are_where_they_should_be() {
        const bar = item("topBar"), rail = item("rail"), sidebar = item("sidebar");
        compare([bar.x, bar.y, bar.width, bar.height], [0, 0, 1350, 46]);
        compare([rail.x, rail.y, rail.width, rail.height], [0, 46, 58, 674]);
        compare([sidebar.x, sidebar.y, sidebar.width, sidebar.height], [58, 46, 330, 674]);
        const content = item("content");
        compare([content.x, content.y, content.width, content.height], [389, 46, 961, 674]);
    }

    function test_only_the_light_scheme_draws_a_line_below_the_top_bar() {
        compare(item("hairline").height, 0);
        demo.preferences.theme = "light";
        tryCompare(TidloTheme, "darkness", 0);
        compare(item("hairline").height, 1);
        compareColor(item("hairline").color, 0.737, 0.824, 0.839);
    }

    function test_three_presses_of_the_theme_button_lead_back() {
        const button = item("themeButton");
        const seen = [];
        for (let i = 0; i < 4; ++i) {
            seen.push([demo.preferences.theme, demo.symbols(button)[0], demo.texts(button)[0]]);
            mouseClick(button);
        }
        compare(seen, [["dark", "moon.fill", "Dark"], ["light", "sun.max.fill", "Light"],
            ["system", "laptopcomputer", "System"], ["dark", "moon.fill", "Dark"]]);
    }

    function test_the_bell_can_be_pressed_and_nothing_happens() {
        const before = [demo.section, demo.phase, demo.preferences.theme];
        mouseClick(item("bell"));
        compare([demo.section, demo.phase, demo.preferences.theme], before);
    }

    function test_the_rail_leads_to_every_section_data() {
        return [
            { tag: "scan from the start", button: 0, phase: "ready", section: "scan", after: "ready" },
            { tag: "results from the start", button: 1, phase: "ready", section: "results", after: "results" },
            { tag: "results while scanning", button: 1, phase: "scanning", section: "results", after: "scanning" },
            { tag: "report without one", button: 2, phase: "results", section: "report", after: "results" },
            { tag: "report with one", button: 2, phase: "results", report: true, section: "report", after: "report" },
            { tag: "settings", button: 3, phase: "results", section: "settings", after: "results" }
        ];
    }

    function test_the_rail_leads_to_every_section(data) {
        demo.setPhase(data.phase);
        if (data.report)
            demo.setReport(1, 1, 1, 0.5);
        const button = item("rail" + data.button);
        mouseClick(button);
        compare(demo.section, data.section);
        compare(demo.phase, data.after);
        for (let i = 0; i < 4; ++i)
            compare(item("rail" + i).active, i === data.button);
        compareColor(button.background.color, 0.388, 0.682, 0.718, 0.18);
        compare(button.width, 36);
    }

    function test_arrows_move_along_the_rail() {
        item("rail0").forceActiveFocus(Qt.TabFocusReason);
        for (let i = 1; i < 4; ++i) {
            keyClick(Qt.Key_Down);
            verify(item("rail" + i).activeFocus);
        }
        keyClick(Qt.Key_Up);
        verify(item("rail2").activeFocus);
        keyClick(Qt.Key_Space);
        compare(demo.section, "report");
    }

    function test_tab_reaches_everything_in_reading_order() {
        const expected = ["themeButton", "bell", "rail0", "rail1", "rail2", "rail3", "scanButton", "scanMyMac"];
        item("themeButton").forceActiveFocus(Qt.TabFocusReason);
        for (const name of expected) {
            verify(item(name).activeFocus, name + " has the focus");
            verify(item(name).visualFocus, name + " shows it");
            keyClick(Qt.Key_Tab);
        }
        verify(item("themeButton").activeFocus, "and around");
    }

    function test_shows_the_screen_of_the_section() {
        for (const [section, phase, title] of [["scan", "ready", "Scan"], ["scan", "scanning", "Scanning your Mac"],
                ["scan", "results", "Scan"], ["results", "results", "AI-assisted results — Zero KB found"],
                ["report", "report", "Cleanup report"], ["settings", "ready", "Settings"]]) {
            demo.setSection(section);
            demo.setPhase(phase);
            text(title);
        }
    }

    function test_the_offer_to_move_is_answered_data() {
        return [
            { tag: "not now", answer: (alert) => mouseClick(findChild(alert.contentItem, "cancelButton")) },
            { tag: "escape", answer: () => keyClick(Qt.Key_Escape) }
        ];
    }

    function test_the_offer_to_move_is_answered(data) {
        const alert = item("moveAlert");
        item("rail1").forceActiveFocus(Qt.TabFocusReason);
        demo.showMovePrompt(true);
        tryVerify(() => alert.opened);
        compare(demo.texts(alert.contentItem), ["Move Tidlo to Applications?",
            "Tidlo is running outside your Applications folder. Move it there so it appears in Launchpad and works like a normal Mac app.",
            "Not now", "Move to Applications"]);
        for (let i = 0; i < 5; ++i) { // The keyboard stays inside.
            keyClick(Qt.Key_Tab);
            verify(!item("rail1").activeFocus);
            verify(findChild(alert.contentItem, "cancelButton").activeFocus
                   || findChild(alert.contentItem, "defaultButton").activeFocus);
        }
        data.answer(alert);
        tryVerify(() => !alert.visible);
        verify(!demo.app.showMoveToApplicationsPrompt);
        verify(demo.app.showSetupWizard, "the wizard follows a declined offer");
        demo.app.showSetupWizard = false;
        tryVerify(() => !item("setupSheet").visible);
    }

    function test_a_failed_move_is_told_and_only_dismissed_data() {
        return [{ tag: "return", key: Qt.Key_Return }, { tag: "escape", key: Qt.Key_Escape }];
    }

    function test_a_failed_move_is_told_and_only_dismissed(data) {
        const alert = item("moveErrorAlert");
        item("rail1").forceActiveFocus(Qt.TabFocusReason);
        demo.showMoveError("Permission denied");
        tryVerify(() => alert.opened);
        compare(demo.texts(alert.contentItem), ["Could not move Tidlo", "Permission denied", "OK"]);
        keyClick(data.key);
        tryVerify(() => !alert.visible);
        verify(!demo.app.showMoveToApplicationsError);
        tryVerify(() => item("rail1").activeFocus);
        demo.showMoveError("Again");
        tryVerify(() => alert.opened);
        keyClick(data.key);
        tryVerify(() => !alert.visible);
    }

    function test_the_first_run_is_a_sheet_that_escape_does_not_close() {
        demo.app.showSetupWizard = true;
        const sheet = item("setupSheet");
        tryVerify(() => sheet.opened);
        compare([sheet.width, sheet.height], [640, 500]);
        keyClick(Qt.Key_Escape);
        verify(sheet.visible);
        keyClick(Qt.Key_Return);
        tryVerify(() => !sheet.visible);
        verify(!demo.app.showSetupWizard);
    }
}
