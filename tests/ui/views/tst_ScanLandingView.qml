import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ScanLandingView"
    view: Component {
        ScanLandingView {
            anchors.fill: parent
            app: demo.shown.app
            keptPaths: demo.shown.keptPaths
            disclosure: demo.shown.disclosure
            preferences: demo.shown.preferences
        }
    }

    function test_says_what_it_is_and_what_it_promises_in_this_order() {
        compare(demo.texts(shown), ["Scan", "AI explanations on", "CLICK TO\nSCAN", "AI-assisted deep clean",
            "Understands your projects, detects duplicates, and explains every decision before cleanup.",
            "Metadata only", "Trash first", "AI optional", "SCAN MY MAC"]);
        compare(demo.symbols(shown), ["lock.shield", "trash", "sparkles"]);
    }

    readonly property string subtitle: "Understands your projects, detects duplicates, and explains every decision before cleanup."

    function column() {
        return text(subtitle).parent;
    }

    function test_it_has_the_head_of_every_screen() {
        compareHeader("Scan");
        comparePill("AI explanations on", "systemMint");
    }

    function test_its_texts_have_their_fonts_and_colors() {
        compareFonts([
            [text("CLICK TO\nSCAN"), TidloType.system(17, Font.Bold)],
            [text("AI-assisted deep clean"), TidloType.system(28, Font.Bold)], [text(subtitle), TidloType.body]
        ]);
        compareColors([
            [text("CLICK TO\nSCAN"), "color", "mutedText"], [text("AI-assisted deep clean"), "color", "primaryText"],
            [text(subtitle), "color", "secondaryLabel"]
        ]);
        for (const words of ["CLICK TO\nSCAN", "AI-assisted deep clean", subtitle])
            compare(text(words).horizontalAlignment, Text.AlignHCenter);
        compare(lineSpacing(text(subtitle)), 4);
    }

    function test_it_is_as_wide_as_it_may_be_and_stands_in_the_middle() {
        compare(column().parent.width, 680);
        compare(place(column().parent).left, (1350 - 680) / 2);
        compare(text(subtitle).width, 460);
        for (const part of Array.from(column().children))
            fuzzyCompare(place(part).left + part.width / 2, 1350 / 2, 1, nameOf(part) + " is in the middle");
        const above = place(column()).top - 56, below = 720 - place(column()).bottom;
        fuzzyCompare(above, below, 1);
    }

    function test_the_button_is_three_shapes_around_one_middle() {
        const button = item("scanButton"), [outer, middle] = gauges(button);
        const disc = seen(button, part => part.radius === 148 / 2)[0];
        compare([outer.width - outer.lineWidth, outer.height - outer.lineWidth, outer.lineWidth], [240, 240, 10]);
        compare([middle.width - middle.lineWidth, middle.height - middle.lineWidth, middle.lineWidth], [204, 204, 8]);
        compare([middle.from, middle.to, middle.roundCaps, outer.from, outer.to], [0, 1, true, 0, 1]);
        compare([disc.width, disc.height], [148, 148]);
        button.pulse = false;
        for (const part of [outer, middle, disc, text("CLICK TO\nSCAN")])
            fuzzyCompare(part.x + part.width / 2, 120, 0.5, nameOf(part) + " is in the middle");
        compare(outer.transformOrigin, Item.Center);
        compareColors([
            [outer, "color", "controlBorder"], [middle, "color", "green"], [middle, "bottomColor", "blue"],
            [disc, "color", "green", 0.12]
        ]);
    }

    function test_a_promise_is_a_symbol_and_two_words_data() {
        return [
            { tag: "lock.shield", words: "Metadata only" }, { tag: "trash", words: "Trash first" },
            { tag: "sparkles", words: "AI optional" }
        ];
    }

    function test_a_promise_is_a_symbol_and_two_words(data) {
        const mark = symbol(data.tag), words = text(data.words), pill = words.parent.parent;
        compare(mark.parent, words.parent);
        verify(place(mark).right < place(words).left);
        compare(pill.radius, 7);
        compareSymbols([[mark, 12, Font.Bold]]);
        compareFonts([[words, TidloType.smallStrong]]);
        compareColors([[mark, "color", "green"], [words, "color", "mutedText"], [pill, "color", "controlSurface"]]);
    }

    function test_the_promises_stand_in_a_row_in_their_order() {
        const pills = ["Metadata only", "Trash first", "AI optional"].map(words => place(text(words).parent.parent));
        verify(pills[0].right < pills[1].left && pills[1].right < pills[2].left);
        compare(pills[0].top, pills[2].top);
    }

    function test_the_last_button_is_the_filled_one() {
        compareColors([[item("scanMyMac").background, "color", "green"]]);
        compare(place(item("scanMyMac")).bottom, place(column()).bottom);
    }

    function test_the_outer_ring_breathes_between_two_sizes_data() {
        return [
            { tag: "small and opaque", breath: 0, scale: 0.96, opacity: 1 },
            { tag: "large and faint", breath: 1, scale: 1.04, opacity: 0.58 }
        ];
    }

    function test_the_outer_ring_breathes_between_two_sizes(data) {
        const button = item("scanButton");
        button.pulse = false;
        button.breath = data.breath;
        const ring = item("halo");
        fuzzyCompare(ring.scale, data.scale, 1e-9);
        fuzzyCompare(ring.opacity, data.opacity, 1e-9);
    }

    function test_the_ring_breathes_from_its_first_moment_on() {
        showAnew();
        breathing.restart();
        compareBreath(() => tryVerify(() => breath.turns >= 3));
    }

    function test_a_change_of_theme_recolours_and_does_not_start_the_pulse_anew() {
        showAnew();
        breathing.restart();
        tryVerify(() => breath.value > 0.5);
        const before = item("scanButton").breath;
        TidloTheme.preference = "light";
        compare(item("scanButton").breath, before);
        compareBreath(() => tryCompare(TidloTheme, "darkness", 0));
        compareBreath(() => tryVerify(() => breath.turns >= 2));
    }

    /// Checks that, while something happens, the ring's animation goes on as if it began when that did.
    function compareBreath(happens) {
        const button = item("scanButton");
        const apart = furthestApart(() => button.breath, () => breath.value, happens);
        verify(apart < 1e-6, "it is " + apart + " off");
    }

    function test_either_button_starts_a_scan_data() {
        return [{ tag: "scanButton" }, { tag: "scanMyMac" }];
    }

    function test_either_button_starts_a_scan(data) {
        mouseClick(item(data.tag));
        compare(demo.phase, "scanning");
        tryVerify(() => demo.phase === "results");
    }

    function test_of_two_quick_presses_only_the_last_scan_counts() {
        const told = [];
        const ended = () => { if (demo.shown.app.scanProgress === 1) told.push("end of a scan"); };
        const found = () => told.push("results");
        demo.shown.app.scanProgressChanged.connect(ended);
        demo.shown.app.candidatesChanged.connect(found);
        mouseClick(item("scanButton"));
        mouseClick(item("scanButton"));
        tryVerify(() => demo.phase === "results");
        demo.shown.app.scanProgressChanged.disconnect(ended);
        demo.shown.app.candidatesChanged.disconnect(found);
        compare(told, ["end of a scan", "end of a scan", "results"]);
    }

    function test_the_keyboard_presses_too() {
        item("scanMyMac").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(demo.phase, "scanning");
        tryVerify(() => demo.phase === "results");
    }

    QtObject {
        id: breath

        property double value
        property int turns
    }

    SequentialAnimation {
        id: breathing

        PropertyAction { target: breath; property: "turns"; value: 0 }
        SequentialAnimation {
            loops: Animation.Infinite

            NumberAnimation {
                target: breath; property: "value"; from: 0; to: 1; duration: 1400; easing: Motion.easeInOut
            }
            ScriptAction { script: ++breath.turns }
            NumberAnimation {
                target: breath; property: "value"; from: 1; to: 0; duration: 1400; easing: Motion.easeInOut
            }
            ScriptAction { script: ++breath.turns }
        }
    }

    function test_a_folder_is_looked_into_as_well_once_that_is_affirmed_data() {
        return [{ tag: "affirmed", key: Qt.Key_Return, count: 1 }, { tag: "declined", key: Qt.Key_Escape, count: 0 }];
    }

    function test_a_folder_is_looked_into_as_well_once_that_is_affirmed(data) {
        const kept = demo.shown.keptPaths;
        kept.propose(demo.folderNamed("code"));
        const alert = item("placeAlert");
        tryVerify(() => alert.opened);
        verify(/^Also look for project folders in “.*code”\?$/.test(alert.title));
        keyClick(data.key);
        tryVerify(() => !alert.visible);
        kept.inspect();
        compare(kept.count, data.count);
        compare([demo.phase, demo.section], ["ready", "scan"]);
    }

    function test_what_cannot_be_looked_into_is_refused() {
        demo.shown.keptPaths.propose(demo.folderNamed("Library"));
        const alert = item("placeRefusedAlert");
        tryVerify(() => alert.opened);
        verify(alert.message.endsWith("is the Library of the home folder, or lies in it."));
        keyClick(Qt.Key_Return);
        tryVerify(() => !alert.visible);
        verify(!item("placeAlert").visible);
    }

    function test_its_menu_offers_to_look_elsewhere_data() {
        return [
            { tag: "pointer", ask: () => mouseClick(shown, 400, 600, Qt.RightButton) },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_its_menu_offers_to_look_elsewhere(data) {
        data.ask();
        tryVerify(() => item("landingMenu").opened);
        compare(item("alsoLookIn").text, "Also look in…");
        verify(!item("placeDialog").item);
        mouseClick(item("alsoLookIn"));
        tryVerify(() => item("placeDialog").item);
        item("placeDialog").item.chosen(demo.folderNamed("code"));
        tryVerify(() => item("placeAlert").opened);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !item("placeAlert").visible);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !item("placeDialog").item);
    }

    function showSent(ask) {
        ask();
        tryVerify(() => item("landingMenu").opened);
        mouseClick(item("showSent"));
        tryVerify(() => item("sentSheet").opened);
        laidOut();
    }

    function askAtPill() {
        const pill = item("explanationsPill");
        mouseClick(pill, pill.width / 2, pill.height / 2, Qt.RightButton);
    }

    function test_the_pill_has_a_menu_of_its_own_and_the_keyboard_reaches_it_too_data() {
        return [
            { tag: "pill", ask: askAtPill, elsewhere: false, sent: true },
            { tag: "elsewhere", ask: () => mouseClick(shown, 400, 300, Qt.RightButton), elsewhere: true, sent: false },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu), elsewhere: true, sent: true },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier), elsewhere: true, sent: true }
        ];
    }

    function test_the_pill_has_a_menu_of_its_own_and_the_keyboard_reaches_it_too(data) {
        data.ask();
        tryVerify(() => item("landingMenu").opened);
        compare([item("alsoLookIn").visible, item("showSent").visible], [data.elsewhere, data.sent]);
        compare(item("showSent").text, "Show what was sent…");
        keyClick(Qt.Key_Escape);
        tryVerify(() => !item("landingMenu").visible);
    }

    function test_before_a_scan_the_pill_shows_what_will_be_sent() {
        showSent(askAtPill);
        const sheet = item("sentSheet");
        compare(sheet.title, "What is sent");
        verify(findChild(sheet.contentItem, "sentSentence").text.startsWith("Each scan asks localhost:8443."));
        verify(findChild(sheet.contentItem, "sentRequest").text.includes("Host: localhost:8443\n"));
        verify(findChild(sheet.contentItem, "sentDone").activeFocus);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !sheet.visible);
    }

    function test_the_switch_is_kept_and_told_at_once_by_the_pill_data() {
        return [
            { tag: "pointer", flip: button => mouseClick(button) },
            { tag: "space", flip: () => keyClick(Qt.Key_Space) }
        ];
    }

    function test_the_switch_is_kept_and_told_at_once_by_the_pill(data) {
        showSent(askAtPill);
        const button = findChild(item("sentSheet").contentItem, "explainScans");
        compare([button.text, button.checked, button.Accessible.role], ["Explain scans", true, Accessible.CheckBox]);
        button.forceActiveFocus(Qt.TabFocusReason);
        compare(demo.storedExplanations, undefined);
        data.flip(button);
        compare([button.checked, demo.storedExplanations], [false, false]);
        text("AI explanations off");
        verify(findChild(item("sentSheet").contentItem, "sentSentence").text.startsWith("Explanations are off"));
        data.flip(button);
        compare([button.checked, demo.storedExplanations], [true, true]);
        text("AI explanations on");
    }

    function test_the_pill_is_muted_while_explanations_are_off() {
        demo.shown.preferences.explanations = false;
        comparePill("AI explanations off", "mutedText");
    }

    function test_the_switch_has_its_looks() {
        showSent(askAtPill);
        const button = findChild(item("sentSheet").contentItem, "explainScans");
        const [track, label] = Array.from(button.contentItem.children), knob = track.children[0];
        compare([track.width, track.height, knob.width, knob.height], [38, 22, 16, 16]);
        compareFonts([[label, TidloType.bodyStrong]]);
        compareColors([[track, "color", "green"], [knob, "color", "black"]]);
        tryCompare(knob, "x", 38 - 16 - 3);
        demo.shown.preferences.explanations = false;
        tryCompare(knob, "x", 3);
        compareColors([[track, "color", "controlSurface"], [knob, "color", "mutedText"]]);
    }

    function test_all_that_is_sent_can_be_copied() {
        showSent(askAtPill);
        const content = item("sentSheet").contentItem, request = findChild(content, "sentRequest");
        mouseClick(findChild(content, "copySent"));
        const pasted = createTemporaryQmlObject("import QtQuick; TextEdit {}", shown);
        pasted.paste();
        compare(pasted.text, request.text);
        verify(pasted.text.startsWith("POST /explain HTTP/1.1\n"));
    }
}
