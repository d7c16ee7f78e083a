import QtQuick
import Tidlo.Design
import Tidlo.Shell

ViewCase {
    name: "RootView"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }

    function cleanup() {
        Fit.scale = 1;
    }

    function test_the_parts_are_where_they_should_be() {
        const bar = item("topBar"), rail = item("rail"), sidebar = item("sidebar");
        compare([bar.x, bar.y, bar.width, bar.height], [0, 0, 1350, 46]);
        compare([rail.x, rail.y, rail.width, rail.height], [0, 46, 58, 674]);
        compare([sidebar.x, sidebar.y, sidebar.width, sidebar.height], [58, 46, 330, 674]);
        const content = item("content");
        compare([content.x, content.y, content.width, content.height], [389, 46, 961, 674]);
    }

    function wear(theme) {
        demo.shown.preferences.theme = theme;
        TidloTheme.preference = theme; // Set before any view is made.
        tryCompare(TidloTheme, "darkness", theme === "dark" ? 1 : 0);
    }

    function behind(part) {
        return Array.from(shown.children).find(other => other.straightEdges !== undefined && place(other) === place(part));
    }

    function test_what_lies_behind_has_its_color() {
        const window = shown.children[0];
        compare(place(window), Qt.rect(0, 0, 1350, 720));
        compareColors([
            [window, "color", "windowBackground"],
            [behind(item("topBar")), "color", "topBarBackground"],
            [behind(item("rail")), "color", "railBackground"],
            [item("sidebar"), "color", "sidebarBackground"]
        ]);
    }

    function test_a_faint_line_divides_the_sidebar_from_the_screen() {
        const divider = Array.from(shown.children).find(part => part.x === 388 && part.width === 1);
        compare(place(divider), Qt.rect(388, 46, 1, 674));
        compareColors([[divider, "color", "divider"]]);
        compareNumbers([[divider, "opacity", 0.25, 0.7]]);
    }

    function test_the_line_below_the_top_bar_comes_with_the_light_scheme() {
        compareNumbers([[item("hairline"), "height", 0, 1]]);
    }

    function test_the_buttons_of_the_rail_stand_below_each_other() {
        const rail = item("rail"), buttons = [0, 1, 2, 3].map(i => item("rail" + i));
        compare(demo.symbols(rail),
                ["house", "chart.pie", "doc.text.magnifyingglass", "gearshape", "shield.lefthalf.filled"]);
        compare(gap(item("topBar"), buttons[0]), 18);
        for (const [i, button] of buttons.entries()) {
            compare([button.width, button.height, button.background.radius], [36, 36, 9]);
            compare(place(button).left, (58 - 36) / 2);
            if (i > 0)
                compare(gap(buttons[i - 1], button), 16);
            compareSymbols([[seen(button, part => part.weight)[0], 16, Font.DemiBold]]);
        }
        const footer = symbol("shield.lefthalf.filled");
        compare(place(footer).bottom, 720 - 20);
        fuzzyCompare(place(footer).left + footer.width / 2, 58 / 2, 0.5);
        compareSymbols([[footer, 15, Font.Normal]]);
    }

    function test_the_active_button_of_the_rail_is_set_off() {
        const active = item("rail0"), other = item("rail1");
        compareColors([
            [active.background, "color", "blue", 0.18], [symbol("house"), "color", "blue"],
            [other.background, "color", "transparent"], [symbol("chart.pie"), "color", "railSymbol"],
            [symbol("shield.lefthalf.filled"), "color", "railSymbol"]
        ]);
    }

    function test_three_presses_of_the_theme_button_lead_back() {
        const button = item("themeButton");
        const seen = [];
        for (let i = 0; i < 4; ++i) {
            seen.push([demo.shown.preferences.theme, demo.symbols(button)[0], demo.texts(button)[0]]);
            mouseClick(button);
        }
        compare(seen, [["dark", "moon.fill", "Dark"], ["light", "sun.max.fill", "Light"],
            ["system", "laptopcomputer", "System"], ["dark", "moon.fill", "Dark"]]);
    }

    function test_the_bell_can_be_pressed_and_nothing_happens() {
        let presses = 0, changes = 0;
        const note = () => ++changes;
        item("bell").clicked.connect(() => ++presses);
        demo.shown.app.objectWillChange.connect(note);
        demo.shown.preferences.themeChanged.connect(note);
        mouseClick(item("bell"));
        const changesOfBell = changes;
        demo.setSection(demo.section); // Even assigning the same value counts.
        demo.shown.app.objectWillChange.disconnect(note);
        demo.shown.preferences.themeChanged.disconnect(note);
        compare([presses, changesOfBell, changes], [1, 0, 1]);
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
    }

    function test_the_tip_of_a_button_of_the_rail_lies_beside_the_rail() {
        const button = item("rail1"), tip = Array.from(button.data).find(part => part.delay !== undefined);
        mouseMove(button);
        tryVerify(() => tip.opened);
        const lies = tip.contentItem.mapToItem(shown, -tip.leftPadding, -tip.topPadding, tip.width, tip.height);
        verify(lies.left >= item("rail").width);
        fuzzyCompare(lies.top + lies.height / 2, place(button).top + button.height / 2, 1);
        mouseMove(shown, 600, 20);
        tryVerify(() => !tip.visible);
    }

    function test_a_tip_is_drawn_as_small_as_the_window() {
        const button = item("rail1"), tip = Array.from(button.data).find(part => part.delay !== undefined);
        Fit.scale = 0.8;
        mouseMove(button);
        tryVerify(() => tip.opened);
        fuzzyCompare(tip.contentItem.mapToItem(shown, 0, 0, tip.contentItem.width, 0).width, tip.contentItem.width * 0.8, 0.01);
        mouseMove(shown, 600, 20);
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
        const expected = ["themeButton", "bell", "rail0", "rail1", "rail2", "rail3", "storage", "scanButton", "scanMyMac"];
        item("themeButton").forceActiveFocus(Qt.TabFocusReason);
        for (const name of expected) {
            verify(item(name).activeFocus, name + " has the focus");
            verify(item(name).visualFocus || name === "storage", name + " shows it");
            keyClick(Qt.Key_Tab);
        }
        verify(item("themeButton").activeFocus, "and around");
    }

    function test_the_keyboard_goes_from_the_start_of_a_scan_to_its_progress_and_on_to_what_it_found_data() {
        return [
            { tag: "by the keyboard", start: (button) => keyClick(Qt.Key_Return), rings: 1 },
            { tag: "by the mouse", start: (button) => mouseClick(button), rings: 0 }
        ];
    }

    function test_the_keyboard_goes_from_the_start_of_a_scan_to_its_progress_and_on_to_what_it_found(data) {
        const ringsOf = (control) => seen(control, part => String(part).startsWith("FocusRing")).length;
        item("content").forceActiveFocus();
        keyClick(Qt.Key_Tab);
        verify(item("scanButton").activeFocus, "the first stop, not " + shown.Window.window.activeFocusItem);
        data.start(item("scanButton"));
        compare(demo.phase, "scanning");
        verify(item("progressCard").activeFocus);
        compare(ringsOf(item("progressCard")), data.rings);

        tryVerify(() => demo.phase === "results");
        verify(item("findings").activeFocus);
        demo.showResultsOfAnotherScan();
        tryVerify(() => findChild(shown, "row0"));
        keyClick(Qt.Key_Tab);
        verify(item("row0").activeFocus);
    }

    function test_the_end_of_a_scan_leaves_the_keyboard_where_it_went_meanwhile() {
        mouseClick(item("scanButton"));
        item("rail3").forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => demo.phase === "results");
        verify(item("rail3").activeFocus);
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

    function test_the_screens_of_a_scan_are_ready_before_it_and_are_kept() {
        verify(item("scanButton").visible);
        tryVerify(() => findChild(shown, "progressCard") && findChild(shown, "findings"));
        const card = item("progressCard"), list = item("findings");
        verify(!card.visible && !list.visible);
        demo.showResults();
        verify(list.visible);
        demo.setSection("settings");
        verify(!list.visible);
        compare([item("progressCard"), item("findings")], [card, list]);
    }

    function test_the_results_keep_their_place_while_another_section_is_shown() {
        demo.showResults();
        tryVerify(() => item("findings").contentHeight > item("findings").height);
        item("findings").scrollTo(0, 150);
        for (const section of ["settings", "report", "results"])
            demo.setSection(section);
        compare(item("findings").contentY, 150);
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
        for (let i = 0; i < 5; ++i) { // The focus stays inside.
            keyClick(Qt.Key_Tab);
            verify(!item("rail1").activeFocus);
            verify(findChild(alert.contentItem, "cancelButton").activeFocus
                   || findChild(alert.contentItem, "defaultButton").activeFocus);
        }
        data.answer(alert);
        tryVerify(() => !alert.visible);
        verify(!demo.shown.app.showMoveToApplicationsPrompt);
        verify(demo.shown.app.showSetupWizard, "the wizard follows a declined offer");
        compare(demo.launches, 0);
        demo.shown.app.showSetupWizard = false;
        tryVerify(() => !item("setupSheet").visible);
    }

    function test_an_accepted_offer_copies_and_starts_the_copy_data() {
        return [
            { tag: "button", accept: (alert) => mouseClick(findChild(alert.contentItem, "defaultButton")) },
            { tag: "return", accept: () => keyClick(Qt.Key_Return) }
        ];
    }

    function test_an_accepted_offer_copies_and_starts_the_copy(data) {
        const alert = item("moveAlert");
        demo.showMovePrompt(true);
        tryVerify(() => alert.opened);
        data.accept(alert);
        tryVerify(() => !alert.visible);
        compare(demo.launches, 1);
        verify(!demo.shown.app.showMoveToApplicationsPrompt);
        verify(!demo.shown.app.showMoveToApplicationsError);
        verify(!demo.shown.app.showSetupWizard);
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
        verify(!demo.shown.app.showMoveToApplicationsError);
        tryVerify(() => item("rail1").activeFocus);
        demo.showMoveError("Again");
        tryVerify(() => alert.opened);
        keyClick(data.key);
        tryVerify(() => !alert.visible);
    }

    function test_what_could_not_be_put_back_is_told() {
        demo.cleanUp(5);
        demo.stickTrash();
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        const alert = item("notPutBackAlert");
        tryVerify(() => alert.opened);
        compare(demo.texts(alert.contentItem)[0], "Not everything was put back");
        verify(alert.message.endsWith("/stays-2\nIt holds a Trash.\n\nAnd 2 more."));
        tryCompare(demo, "phase", "results");
        keyClick(Qt.Key_Return);
        tryVerify(() => !alert.visible);
    }

    function test_while_it_cannot_be_read_what_is_spared_nothing_is_moved() {
        demo.showResults();
        demo.damagePreference("tidlo.spared");
        demo.shown.findings.moveSelectedToTrash();
        const alert = item("sparedUnknownAlert");
        tryVerify(() => alert.opened);
        compare(demo.texts(alert.contentItem)[0], "Nothing was moved");
        compare(demo.phase, "results");
        keyClick(Qt.Key_Return);
        tryVerify(() => !alert.visible);
        demo.shown.findings.moveSelectedToTrash();
        tryVerify(() => alert.opened);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !alert.visible);
    }

    function test_a_failed_move_is_told_before_the_first_run_goes_on() {
        demo.showMoveError("Permission denied");
        demo.shown.app.showSetupWizard = true;
        tryVerify(() => item("moveErrorAlert").opened);
        verify(!item("setupSheet").visible);
        keyClick(Qt.Key_Return);
        tryVerify(() => item("setupSheet").opened);
        verify(!item("moveErrorAlert").visible);
    }

    function test_the_keys_scroll_the_sidebar_when_it_has_the_keyboard() {
        const area = item("storage");
        const most = area.contentHeight - area.height;
        verify(most > 0);
        area.forceActiveFocus(Qt.TabFocusReason);
        for (const [key, y] of [[Qt.Key_End, most], [Qt.Key_Home, 0], [Qt.Key_PageDown, most], [Qt.Key_PageUp, 0],
                [Qt.Key_Up, 0]]) {
            keyClick(key);
            compare(area.contentY, y);
        }
    }

    function test_the_wheel_scrolls_the_sidebar_and_a_drag_does_not() {
        const area = item("storage");
        mouseWheel(area, 100, 300, 0, -1200);
        compare(area.contentY, area.contentHeight - area.height);
        mouseDrag(area, 100, 300, 0, 200);
        compare(area.contentY, area.contentHeight - area.height);
        mouseWheel(area, 100, 300, 0, 1200);
        compare(area.contentY, 0);
    }

    function test_the_first_run_is_a_sheet_that_escape_does_not_close() {
        demo.shown.app.showSetupWizard = true;
        const sheet = item("setupSheet");
        tryVerify(() => sheet.opened);
        compare([sheet.width, sheet.height], [640, 500]);
        keyClick(Qt.Key_Escape);
        verify(sheet.visible);
        keyClick(Qt.Key_Return);
        tryVerify(() => !sheet.visible);
        verify(!demo.shown.app.showSetupWizard);
    }
}
