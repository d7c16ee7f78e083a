import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "SettingsView"
    view: Component {
        SettingsView {
            anchors.fill: parent
            app: demo.shown.app
            removal: demo.shown.removal
            keptPaths: demo.shown.keptPaths
            preferences: demo.shown.preferences
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
        compare(demo.shown.preferences.theme, data.tag);
        verify(item("theme-" + data.tag).selected);
        mouseClick(item("theme-" + data.tag));
        compare(demo.shown.preferences.theme, data.tag);
        for (const theme of ["dark", "light", "system"])
            compare(item("theme-" + theme).selected, theme === data.tag);
    }

    function test_a_press_on_the_theme_that_holds_by_default_stores_it() {
        compare(demo.storedTheme, "");
        mouseClick(item("theme-dark"));
        compare(demo.storedTheme, "dark");
    }

    function test_an_unknown_theme_chooses_none() {
        demo.shown.preferences.theme = "sepia";
        for (const theme of ["dark", "light", "system"])
            verify(!item("theme-" + theme).selected);
    }

    function test_a_chosen_theme_is_set_off() {
        const options = ["dark", "light", "system"].map(theme => item("theme-" + theme)), rows = [];
        for (const option of options) {
            const surface = option.background, chosen = option.selected;
            const mark = seen(option, part => part.weight)[0], title = texts(option)[0];
            compare([surface.radius, surface.borderWidth], [10, chosen ? 2 : 1]);
            compareSymbols([[mark, 14, Font.Bold]]);
            compareFonts([[title, TidloType.bodyStrong]]);
            verify(place(mark).right < place(title).left);
            rows.push([mark, "color", chosen ? "blue" : "mutedText"],
                      [title, "color", chosen ? "primaryText" : "secondaryLabel"],
                      [surface, "color", ...(chosen ? ["blue", 0.16] : ["controlSurface"])],
                      [surface, "borderColor", chosen ? "blue" : "controlBorder"]);
        }
        compareColors(rows);
    }

    function test_the_mark_of_the_chosen_theme_moves_with_the_choice() {
        const before = item("theme-dark").background, after = item("theme-light").background;
        mouseClick(item("theme-light"));
        tryCompare(after, "borderWidth", 2);
        tryCompare(before, "borderWidth", 1);
        compareColors([[after, "color", "blue", 0.16], [before, "color", "controlSurface"]]);
    }

    function test_it_has_the_head_of_every_screen() {
        compareHeader("Settings");
        comparePill("AI proxy connected", "systemMint");
    }

    function cards() {
        return ["Appearance & Theme", "Tidlo AI Server Proxy", "Uninstall Tidlo"].map(title => text(title).parent.parent);
    }

    function test_the_cards_stand_below_each_other_no_wider_than_they_may_be() {
        const [first, second, third] = cards();
        compare([gap(first, second), gap(second, third)], [12, 12]);
        for (const card of cards()) {
            compare([card.width, place(card).left, card.radius], [640, (1350 - 640) / 2, 10]);
            verify(card.children[0].width < 640);
        }
        compareColors(cards().map(card => [card, "color", "cardSurface"]));
    }

    function test_narrow_cards_keep_their_distance_from_the_edges() {
        const narrow = createTemporaryObject(view, this, { "anchors.fill": undefined, width: 500, height: 600 });
        const card = text("Appearance & Theme", narrow).parent.parent;
        tryCompare(card, "width", 500 - 2 * 22);
    }

    function test_the_texts_have_their_fonts_and_colors() {
        const large = TidloType.system(22, Font.Bold);
        const theme = text("Choose your preferred color scheme for Tidlo.");
        const maker = text("Powered by Google Gemini 1.5 Flash.");
        const status = text("Server Proxy Status: Active");
        const sentence = text("All AI requests are processed securely via localhost. No local API key setup required.");
        const removal = text("Remove the installed application, Tidlo preferences, and saved setup state.");
        compareFonts([
            [text("Appearance & Theme"), large], [text("Tidlo AI Server Proxy"), large],
            [text("Uninstall Tidlo"), TidloType.headline], [status, TidloType.bodyStrong], [sentence, TidloType.small]
        ]);
        compare([lineSpacing(maker), lineSpacing(removal)], [3, 3]);
        compareColors([
            [text("Appearance & Theme"), "color", "primaryText"], [theme, "color", "mutedText"],
            [maker, "color", "mutedText"], [status, "color", "primaryText"], [sentence, "color", "mutedText"],
            [removal, "color", "mutedText"]
        ]);
    }

    function test_the_seal_stands_beside_the_state_of_the_proxy() {
        const seal = symbol("checkmark.seal.fill"), status = text("Server Proxy Status: Active");
        compareSymbols([[seal, 20, Font.DemiBold]]);
        compareColors([[seal, "color", "green"]]);
        verify(place(seal).right < place(status).left);
    }

    function test_the_button_that_uninstalls_looks_dangerous() {
        const button = item("uninstall");
        compareFonts([[button.contentItem, TidloType.system(13, Font.DemiBold)]]);
        compareColors([
            [button.contentItem, "color", "red"], [button.background, "color", "red", 0.1],
            [button.background, "borderColor", "red", 0.35]
        ]);
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
        compare(demo.uninstalls, 0);
    }

    function test_arrows_stay_among_the_themes() {
        item("theme-system").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        verify(item("theme-system").activeFocus);
        keyClick(Qt.Key_Left);
        verify(item("theme-light").activeFocus);
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        verify(item("theme-dark").activeFocus);
    }

    function test_only_the_destructive_action_uninstalls_and_only_once() {
        mouseClick(item("uninstall"));
        tryVerify(() => alert().opened);
        compare(demo.uninstalls, 0);
        mouseClick(findChild(alert().contentItem, "dangerButton"));
        tryVerify(() => !alert().visible);
        verify(!shown.showUninstallConfirmation);
        compare(demo.uninstalls, 1);
    }

    function test_what_is_kept_for_all_scans_can_be_seen_and_taken_back_data() {
        return [
            { tag: "pointer", ask: () => mouseClick(shown, 400, 300, Qt.RightButton) },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_what_is_kept_for_all_scans_can_be_seen_and_taken_back(data) {
        const kept = demo.shown.keptPaths;
        kept.propose(demo.folderNamed("code"));
        tryVerify(() => kept.question !== "");
        kept.answer(true);
        data.ask();
        tryVerify(() => item("settingsMenu").opened);
        mouseClick(item("showKeptPaths"));
        const sheet = item("keptPathsSheet");
        tryVerify(() => sheet.opened);
        const list = findChild(sheet.contentItem, "items");
        compare(list.count, 1);
        laidOut();
        text("Project folders are looked for in it", list.itemAtIndex(0));
        list.forceActiveFocus(Qt.TabFocusReason);
        verify(list.itemAtIndex(0).Accessible.checked);
        keyClick(Qt.Key_Space);
        verify(!list.itemAtIndex(0).Accessible.checked);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !sheet.visible);
        kept.inspect();
        compare(kept.count, 0);
    }

    function test_it_says_that_nobody_is_asked_while_explanations_are_off() {
        demo.shown.preferences.explanations = false;
        comparePill("AI explanations off", "mutedText");
        text("Nobody is asked for explanations.");
        demo.shown.preferences.explanations = true;
        text("All AI requests are processed securely via localhost. No local API key setup required.");
    }
}
