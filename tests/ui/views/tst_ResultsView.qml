import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ResultsView"
    view: Component {
        ResultsView {
            width: 961
            height: 674
            findings: demo.shown.findings
            items: demo.shown.foundItems
            disclosure: demo.shown.disclosure
            preferences: demo.shown.preferences
        }
    }

    function rows() {
        const found = [];
        for (let i = 0; findChild(shown, "row" + i); ++i)
            found.push(findChild(shown, "row" + i));
        return found;
    }

    function show() {
        demo.showResults();
        tryVerify(() => rows().length === 9);
        laidOut();
    }

    function test_the_results_of_another_scan_begin_at_the_top() {
        show();
        const area = item("findings");
        area.scrollTo(0, area.contentHeight);
        verify(area.contentY > 0);
        demo.showResultsOfAnotherScan();
        laidOut();
        compare(area.contentY, 0);
    }

    function test_what_changes_about_findings_leaves_their_place() {
        show();
        const area = item("findings");
        area.scrollTo(0, 120);
        demo.changeCandidate(0, { selected: false });
        demo.setExplaining(false);
        laidOut();
        compare(area.contentY, 120);
    }

    function test_tells_how_much_was_found() {
        show();
        text("AI-assisted results — 54.75 GB found");
        text("48.57 GB selected");
        text("Moves to Trash — never permanent");
    }

    function test_filters_by_risk_data() {
        return [
            { tag: "chipAll", left: 9 }, { tag: "chipSafe", left: 2 }, { tag: "chipReview", left: 4 }
        ];
    }

    function test_filters_by_risk(data) {
        show();
        mouseClick(item(data.tag));
        compare(rows().length, data.left);
        for (const chip of ["chipAll", "chipSafe", "chipReview"])
            compare(item(chip).selected, chip === data.tag);
        text("48.57 GB selected"); // Hidden findings count as well.
    }

    function test_a_chip_shows_whether_it_is_chosen_data() {
        return [
            { tag: "chosen", chip: "chipAll", words: "All", text: ["blue"], fill: ["blue", 0.16], border: ["blue", 0.45] },
            { tag: "Safe", chip: "chipSafe", words: "Safe", text: ["secondaryLabel"], fill: ["systemGray", 0.12],
              border: ["systemGray", 0.2] },
            { tag: "Review", chip: "chipReview", words: "Review", text: ["secondaryLabel"], fill: ["systemGray", 0.12],
              border: ["systemGray", 0.2] }
        ];
    }

    function test_a_chip_shows_whether_it_is_chosen(data) {
        const chip = item(data.chip), words = text(data.words, chip), pill = chip.contentItem;
        compareFonts([[words, TidloType.smallStrong]]);
        compare([pill.width, pill.height, pill.radius, pill.border.width], [chip.width, chip.height, chip.height / 2, 1]);
        compareColors([
            [words, "color", ...data.text], [pill, "color", ...data.fill], [pill, "border.color", ...data.border]
        ]);
    }

    function test_there_are_three_chips_in_their_order_at_the_right_of_the_head() {
        compareHeader("AI-assisted results — Zero KB found");
        compare(demo.texts(shown).slice(1, 4), ["All", "Safe", "Review"]);
        verify(place(item("chipAll")).right < place(item("chipSafe")).left);
        verify(place(item("chipSafe")).right < place(item("chipReview")).left);
        fuzzyCompare(place(item("chipReview")).right, shown.width - 22, 1);
    }

    function test_a_row_shows_its_finding() {
        show();
        const row = item("row3");
        compare(demo.texts(row), ["WhatsApp / Chat Media & Attachments",
            "Chat photos, videos, and media files. Unchecked by default; check manually if you want to clear media to free space.",
            "6.18 GB", "Review first"]);
        compare(demo.symbols(row), ["square", "message.circle"]);
        compare(demo.symbols(item("row0")), ["checkmark.square.fill", "folder.badge.gearshape"]);
    }

    function test_a_row_is_a_card_with_everything_in_its_font() {
        show();
        const row = item("row0"), [tick, mark] = seen(row, part => part.weight);
        const [title, detail, size, badge] = texts(row);
        compare([row.background.radius, row.background.borderWidth], [14, 0]);
        compare(tick.size, 18);
        compare(mark.parent.width, 24);
        compareFonts([
            [title, TidloType.section], [detail, TidloType.body], [size, TidloType.section],
            [badge, TidloType.smallStrong]
        ]);
        compareColors([
            [row.background, "color", "cardSurface"], [title, "color", "primaryText"], [detail, "color", "mutedText"],
            [findChild(row, "bar").parent.children[0], "color", "systemGray", [0.18, 0.14]]
        ]);
        verify(place(tick).right < place(mark).left && place(mark).right < place(title).left);
        verify(place(title).bottom <= place(detail).top);
        verify(place(detail).bottom <= place(findChild(row, "bar")).top);
        compare(gap(row, item("row1")), 8);
    }

    function test_the_words_of_a_row_end_before_its_figures() {
        show();
        demo.changeCandidate(0, { title: "A title that is far longer than any row is wide ".repeat(5) });
        const row = item("row0"), [title, detail, size, badge] = texts(row), pill = badge.parent;
        for (const words of [title, detail, findChild(row, "bar").parent]) {
            verify(place(words).right <= Math.min(place(size).left, place(pill).left), nameOf(words));
            compare(words.width, detail.width);
        }
        for (const figure of [size, pill])
            fuzzyCompare(place(figure).right, place(row).right - 16, 1e-6);
        verify(place(size).bottom <= place(pill).top);
        verify(title.truncated);
        compare(row.height, detail.parent.height + 24);
        const before = row.height;
        demo.changeCandidate(0, { detail: "More words than one line of the row can hold. ".repeat(10) });
        tryVerify(() => row.height > before);
        compare(row.height, detail.parent.height + 24);
    }

    function test_a_bar_is_a_capsule_on_a_track_as_wide_as_the_words() {
        show();
        const bar = findChild(item("row1"), "bar"), track = bar.parent.children[0];
        compare([bar.radius, track.radius], [bar.height / 2, track.height / 2]);
        compare([bar.x, bar.height, track.width], [0, track.height, bar.parent.width]);
        compare(place(track).right, place(texts(item("row1"))[0]).right);
    }

    function test_categories_have_their_symbols_and_colors_data() {
        return [
            { tag: "project files", row: 0, symbol: "folder.badge.gearshape", color: "systemBlue" },
            { tag: "large and old files", row: 1, symbol: "clock.arrow.circlepath", color: "systemOrange" },
            { tag: "caches", row: 2, symbol: "externaldrive", color: "systemPurple" },
            { tag: "WhatsApp", row: 3, symbol: "message.circle", color: "systemMint" },
            { tag: "downloads", row: 4, symbol: "arrow.down.to.line", color: "systemYellow" }
        ];
    }

    function test_categories_have_their_symbols_and_colors(data) {
        show();
        compareColors([[symbol(data.symbol, item("row" + data.row)), "color", data.color]]);
    }

    function test_risks_have_their_colours_data() {
        return [
            { tag: "Safe to delete", color: "systemMint", badge: "systemMint" },
            { tag: "Rebuildable", color: "systemBlue", badge: "systemBlue" },
            { tag: "Review first", color: "systemYellow", badge: "systemYellow" },
            { tag: "Never touch", color: "systemRed", badge: "red" }
        ];
    }

    function test_risks_have_their_colours(data) {
        show();
        demo.changeCandidate(0, { risk: data.tag });
        const row = item("row0");
        compareColors([
            [text("18.43 GB", row), "color", data.color], [findChild(row, "bar"), "color", data.color],
            [text(data.tag, row), "color", data.badge], [text(data.tag, row).parent, "color", data.badge, 0.13]
        ]);
    }

    function test_bars_are_to_scale_and_never_shorter_than_five_points() {
        show();
        demo.changeCandidate(1, { bytes: 0 });
        demo.changeCandidate(2, { bytes: 9215000000 });
        const full = findChild(item("row0"), "bar");
        compare(full.width, full.parent.width);
        compare(findChild(item("row1"), "bar").width, 5);
        fuzzyCompare(findChild(item("row2"), "bar").width, full.width / 2, 0.01);
    }

    function test_a_bar_covers_its_track_and_leaves_the_rest_of_it() {
        show();
        const bar = findChild(item("row1"), "bar"), track = place(bar.parent), picture = grabImage(shown);
        const colorAt = (x) => picture.pixel(x, track.y + track.height / 2);
        const end = track.x + bar.width, cap = track.height;
        for (const x of [track.x + cap, (track.x + end) / 2, end - cap])
            compareColor(colorAt(x), bar.color.r, bar.color.g, bar.color.b);
        compare(colorAt(end + cap), colorAt(track.right - cap), "the track is of one color");
        verify(!isAlike(colorAt(end + cap), bar.color), "and of another than the bar");
    }

    function test_bars_are_to_the_scale_of_all_findings_also_the_hidden() {
        show();
        mouseClick(item("chipReview"));
        const bar = findChild(item("row0"), "bar");
        fuzzyCompare(bar.width / bar.parent.width, 6180 / 18430, 0.001);
    }

    function test_an_explanation_of_a_finding_replaces_its_detail() {
        show();
        demo.changeCandidate(0, { aiExplanation: "Old dependencies." });
        compare(demo.texts(item("row0"))[1], "Old dependencies.");
        demo.changeCandidate(0, { title: "<b>bold</b>", aiExplanation: "a\u202eb" });
        compare(demo.texts(item("row0")).slice(0, 2), ["<b>bold</b>", "a\\u202eb"]);
    }

    function test_while_an_explanation_is_awaited_its_place_is_kept() {
        show();
        demo.setExplaining(true);
        verify(item("loadingCard").visible);
        verify(!item("summaryCard").visible);
        text("AI Storage Analysis in progress...");
        text("Analyzing project bloat, node_modules, and cache files with Gemini AI...");
        demo.setExplaining(false);
        verify(!item("loadingCard").visible);
        verify(item("summaryCard").visible);
    }

    function test_the_card_that_waits_has_its_looks() {
        show();
        demo.setExplaining(true);
        laidOut();
        const card = item("loadingCard"), [circle, arc] = gauges(card), mark = symbol("sparkles", card);
        const [title, detail] = texts(card), row = card.children[0];
        compare(card.radius, 10);
        compare([row.x, row.y, row.width, row.height], [14, 14, card.width - 28, card.height - 28]);
        compare([arc.parent.width, arc.parent.height], [28, 28]);
        for (const gauge of [circle, arc])
            compare([gauge.width - gauge.lineWidth, gauge.height - gauge.lineWidth, gauge.lineWidth], [28, 28, 3]);
        compare([circle.from, circle.to, arc.roundCaps, mark.opacity], [0, 1, true, 0.7]);
        verify(arc.to - arc.from < 1);
        compareSymbols([[mark, 11, Font.Bold]]);
        compareFonts([[title, TidloType.bodyStrong], [detail, TidloType.small]]);
        compareColors([
            [circle, "color", "green", 0.18], [arc, "color", "green"], [arc, "bottomColor", "blue"],
            [title, "color", "primaryText"], [detail, "color", "mutedText"]
        ]);
    }

    function test_the_card_that_waits_turns_and_pulses() {
        demo.setExplaining(true);
        showAnew();
        pulsing.restart();
        const card = item("loadingCard"), mark = symbol("sparkles", card), turn = findChild(card, "turn");
        compare([turn.from, turn.to, turn.duration, turn.easing.type], [0, 360, 1200, Easing.Linear]);
        verify(turn.running && turn.loops < 0); // Below zero means endless.
        const apart = furthestApart(() => mark.scale, () => pulse.value, () => tryVerify(() => pulse.turns >= 3));
        verify(apart < 1e-6, "it is " + apart + " off");
    }

    function test_the_explanation_is_on_a_tinted_card() {
        show();
        const card = item("summaryCard"), words = item("explanation");
        compare([card.radius, card.borderWidth], [10, 0]);
        compare(words.spacing, 3);
        compareFonts([[words, TidloType.body]]);
        compareColors([
            [card, "color", "green", [0.1, 0.13]], [symbol("sparkles", card), "color", "green"],
            [words, "color", "mutedText"]
        ]);
        verify(place(symbol("sparkles", card)).right < place(words).left);
    }

    function test_the_bar_at_the_bottom_has_its_size_and_its_fonts() {
        show();
        const size = text("48.57 GB selected"), note = text("Moves to Trash — never permanent");
        const bar = size.parent.parent.parent;
        compare(place(bar), Qt.rect(0, shown.height - 86, shown.width, 86));
        compare([place(size).left, place(item("moveToTrash")).right], [22, shown.width - 22]);
        verify(place(size).bottom <= place(note).top);
        verify(place(item("viewReport")).right < place(item("moveToTrash")).left);
        compareFonts([[size, TidloType.section], [note, TidloType.small]]);
        compareColors([
            [size, "color", "primaryText"], [note, "color", "mutedText"],
            [item("viewReport").background, "color", "controlSurface"], [item("moveToTrash").background, "color", "green"]
        ]);
    }

    function test_an_empty_explanation_shows_no_card() {
        show();
        demo.setSummary("");
        verify(!item("loadingCard").visible);
        verify(!item("summaryCard").visible);
    }

    function test_the_explanation_is_plain_text_that_can_be_selected() {
        show();
        demo.setSummary("<b>Do</b> not \u202etrust");
        const explanation = item("explanation");
        compare(explanation.text, "<b>Do</b> not \\u202etrust");
        compare(explanation.textFormat, TextEdit.PlainText);
        verify(explanation.selectByMouse && explanation.readOnly);
    }

    function test_of_an_explanation_without_end_the_beginning_is_shown() {
        show();
        const explanation = item("explanation"), rest = item("rest");
        verify(!rest.visible);

        demo.setSummary("x".repeat(1000000));

        compare(explanation.text, "x".repeat(4000));
        compare(rest.text, "996,000 more characters are not shown. Select all and copy to have the whole text.");
        laidOut();
        compare(place(rest).left, place(explanation).left);
        verify(place(rest).top > place(explanation).bottom);
        verify(place(rest).bottom < place(item("summaryCard")).bottom);
        compareFonts([[rest, TidloType.small]]);
        compareColors([[rest, "color", "mutedText"]]);
    }

    function test_to_copy_all_that_is_shown_of_an_explanation_copies_the_rest_too() {
        show();
        demo.setSummary("beginning " + "x".repeat(1000000));
        const explanation = item("explanation");
        explanation.forceActiveFocus(Qt.TabFocusReason);
        keySequence(StandardKey.SelectAll);
        compare(copiedBy(() => keySequence(StandardKey.Copy)), "beginning " + "x".repeat(1000000));

        explanation.select(0, 9);
        compare(copiedBy(() => keySequence(StandardKey.Copy)), "beginning");

        demo.setSummary("short");
        keySequence(StandardKey.SelectAll);
        compare(copiedBy(() => keySequence(StandardKey.Copy)), "short");
    }

    function test_a_tap_on_a_row_flips_it_and_keeps_its_place_and_focus() {
        show();
        const row = item("row3");
        const place = row.y;
        row.forceActiveFocus(Qt.TabFocusReason);
        compare(demo.selectedCount(), 8);
        keyClick(Qt.Key_Space);
        compare(demo.selectedCount(), 9);
        compare(item("row3"), row);
        compare(row.y, place);
        verify(row.activeFocus);
        mouseClick(row);
        compare(demo.selectedCount(), 8);
        keyClick(Qt.Key_Return);
        compare(demo.selectedCount(), 9);
    }

    function test_what_is_never_to_be_touched_cannot_be_ticked_data() {
        return [
            { tag: "mouse", press: (row) => mouseClick(row) },
            { tag: "space", press: () => keyClick(Qt.Key_Space) },
            { tag: "return", press: () => keyClick(Qt.Key_Return) }
        ];
    }

    function test_what_is_never_to_be_touched_cannot_be_ticked(data) {
        show();
        demo.changeCandidate(0, { risk: "Never touch", selected: false });
        const row = item("row0");
        row.forceActiveFocus(Qt.TabFocusReason);
        data.press(row);
        verify(!row.checked);
        compare(demo.symbols(row)[0], "square");
        compare(demo.selectedCount(), 7);
    }

    function test_arrows_move_between_rows_and_chips() {
        show();
        item("row0").forceActiveFocus(Qt.TabFocusReason);
        for (let i = 1; i < 9; ++i) {
            keyClick(Qt.Key_Down);
            verify(item("row" + i).activeFocus);
        }
        keyClick(Qt.Key_Down);
        verify(item("row8").activeFocus, "there is nothing below the last");
        const area = item("findings");
        const bottom = item("row8").mapToItem(area, 0, item("row8").height).y;
        verify(bottom <= area.height, "what has the focus is seen");
        keyClick(Qt.Key_Up);
        verify(item("row7").activeFocus);
        item("chipAll").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        verify(item("chipSafe").activeFocus);
        keyClick(Qt.Key_Left);
        verify(item("chipAll").activeFocus);
    }

    function test_arrows_stay_among_the_chips_and_lead_to_the_rows_and_back() {
        show();
        item("chipAll").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Left);
        verify(item("chipAll").activeFocus);
        item("chipReview").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        verify(item("chipReview").activeFocus);
        keyClick(Qt.Key_Down);
        verify(item("row0").activeFocus && item("row0").visualFocus);
        keyClick(Qt.Key_Up);
        verify(item("chipAll").activeFocus, "the chip that is chosen");
        item("findings").forceActiveFocus(Qt.OtherFocusReason);
        keyClick(Qt.Key_Down);
        verify(item("row0").activeFocus && item("row0").visualFocus);
    }

    function test_a_row_that_is_toggled_animates_data() {
        return [
            { tag: "space", toggle: () => keyClick(Qt.Key_Space) },
            { tag: "return", toggle: () => keyClick(Qt.Key_Return) },
            { tag: "mouse", toggle: (row) => mouseClick(row) },
            { tag: "the state itself", toggle: () => demo.changeCandidate(0, { selected: false }) }
        ];
    }

    function test_a_row_that_is_toggled_animates(data) {
        show();
        const row = item("row0");
        row.forceActiveFocus(Qt.TabFocusReason);
        tryCompare(row, "tickScale", 1);
        data.toggle(row);
        verify(row.tickScale < 1);
        tryCompare(row, "tickScale", 1);
    }

    function test_a_row_that_is_made_does_not_animate() {
        show();
        for (const row of rows())
            compare(row.tickScale, 1, nameOf(row));
        mouseClick(item("chipReview"));
        for (const row of rows())
            compare(row.tickScale, 1, nameOf(row) + " of those that are left");
    }

    function ringOf(item) {
        return seen(item, part => String(part).startsWith("FocusRing"));
    }

    function test_the_explanation_shows_a_ring_for_the_keyboard_alone() {
        show();
        const explanation = item("explanation");
        mouseClick(explanation);
        verify(explanation.activeFocus);
        compare(ringOf(explanation), []);

        item("chipReview").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(explanation.activeFocus);
        compare(ringOf(explanation).length, 1);

        mouseClick(explanation);
        item("chipReview").forceActiveFocus();
        mouseClick(explanation);
        compare(ringOf(explanation), []);
    }

    function test_nothing_divides_the_list_from_the_bar_beneath() {
        show();
        const whole = grabImage(shown), bar = place(item("moveToTrash").parent.parent);
        for (const x of [300, 480])
            compareColor(whole.pixel(x, bar.top), ...["r", "g", "b"].map(part => whole.pixel(x, bar.top + 3)[part]));
    }

    function test_what_cannot_be_toggled_does_not_animate() {
        show();
        demo.changeCandidate(0, { risk: "Never touch", selected: false });
        const row = item("row0");
        tryCompare(row, "tickScale", 1);
        mouseClick(row);
        compare(row.tickScale, 1);
    }

    function test_the_list_of_items_is_walked_with_the_keys() {
        const list = findChild(lookInto(4), "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        for (const [key, row] of [[Qt.Key_End, 22], [Qt.Key_Home, 0], [Qt.Key_PageDown, list.rowsShown],
                [Qt.Key_PageUp, 0], [Qt.Key_PageUp, 0], [Qt.Key_Down, 1]]) {
            keyClick(key);
            compare(list.currentIndex, row);
        }
        keyClick(Qt.Key_End);
        const bottom = () => list.currentItem.mapToItem(list, 0, list.currentItem.height).y;
        tryVerify(() => bottom() <= list.height, 5000, "what the keys reach is seen");
    }

    function test_the_bar_of_the_list_takes_a_press_from_the_row_beneath() {
        const list = findChild(lookInto(4), "items"), beneath = list.itemAtIndex(2);
        mouseClick(beneath, beneath.width / 2);
        compare(list.currentIndex, 2);

        const bar = seen(list, part => String(part).startsWith("OverlayScrollBar"))[0], thumb = bar.contentItem;
        compare(place(bar).right, place(list).right);
        const second = place(list.itemAtIndex(1)), x = bar.width / 2;
        mousePress(bar, x, second.y + second.height / 2 - place(bar).y);
        mouseMove(bar, x, bar.height);
        mouseRelease(bar, x, bar.height);

        compare(list.currentIndex, 2);
        verify(list.atYEnd, "the bar has scrolled");
        compare(place(thumb).bottom, place(bar).bottom - bar.padding);
    }

    function test_a_search_leaves_a_row_for_the_keys() {
        const content = lookInto(4);
        const list = findChild(content, "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_End);
        findChild(content, "itemsSearch").forceActiveFocus();
        keyClick(Qt.Key_2);
        compare(list.count, 5);
        compare(list.currentIndex, 0);
        verify(list.currentItem);
    }

    function test_an_item_is_told_as_it_is_named() {
        const line = createTemporaryObject(itemRow, shown);
        compare(line.Accessible.name, "/c/https%3A%2F%2Fexample.org %1, 33 KB");
    }

    Component {
        id: itemRow

        ItemRow {
            pathText: "/c/https%3A%2F%2Fexample.org %1"
            detailText: "33 KB"
            ticked: false
            current: false
        }
    }

    function test_nothing_can_be_moved_without_a_selection_data() {
        return [
            { tag: "mouse", press: (button) => mouseClick(button) },
            { tag: "space", press: () => keyClick(Qt.Key_Space) },
            { tag: "return", press: () => keyClick(Qt.Key_Return) }
        ];
    }

    function test_nothing_can_be_moved_without_a_selection(data) {
        show();
        const button = item("moveToTrash");
        verify(button.enabled);
        button.forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { selected: false });
        verify(!button.enabled);
        let presses = 0;
        button.clicked.connect(() => ++presses);
        button.forceActiveFocus(Qt.TabFocusReason);
        data.press(button);
        compare(presses, 0);
        compare([demo.phase, demo.section], ["results", "results"]);
        verify(item("viewReport").enabled);
    }

    function test_the_report_can_always_be_seen() {
        show();
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { selected: false });
        verify(item("viewReport").enabled);
        mouseClick(item("viewReport"));
        compare(demo.phase, "report");
        compare(demo.section, "report");
    }

    function test_the_figure_of_the_selection_tells_what_it_frees_data() {
        return [
            { tag: "pointer", ask: () => mouseClick(item("selectionText"), 5, 5, Qt.RightButton) },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_the_figure_of_the_selection_tells_what_it_frees(data) {
        show();
        item("moveToTrash").forceActiveFocus(Qt.TabFocusReason);
        data.ask();
        tryVerify(() => item("barMenu").opened);
        mouseClick(item("whatThisFrees"));
        const alert = item("forecastAlert");
        tryVerify(() => alert.opened);
        compare(alert.message,
            "48.57 GB selected. Once it is in the Trash, emptying that frees about 48.57 GB.");
        keyClick(Qt.Key_Return);
        tryVerify(() => !alert.visible);
    }

    function lookInto(index) {
        show();
        mouseClick(item("row" + index), 200, 20, Qt.RightButton);
        const menu = item("rowMenu");
        tryVerify(() => menu.opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        tryVerify(() => item("itemsSheet").opened);
        return item("itemsSheet").contentItem;
    }

    function path(number) {
        return "/home/you/Downloads/installer-" + number + ".dmg";
    }

    /// The content of the clipboard after act().
    function copiedBy(act) {
        clipboard.text = "something else";
        clipboard.selectAll();
        clipboard.copy();
        act();
        clipboard.clear();
        clipboard.paste();
        return clipboard.text;
    }

    function test_a_finding_can_be_looked_into() {
        const content = lookInto(4);
        text("Downloads / old installers and archives", content);
        const list = findChild(content, "items");
        compare(list.count, 23);
        findChild(content, "itemsSearch").forceActiveFocus();
        keyClick(Qt.Key_2);
        compare(list.count, 5); // installer-2, installer-12 and installer-20 to 22
        compare(demo.selectedCount(), 8);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !item("itemsSheet").visible);
    }

    function test_an_item_can_be_spared_for_good_data() {
        return [
            { tag: "pointer", ask: (list) => mouseClick(list.itemAtIndex(1), 40, 18, Qt.RightButton) },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_an_item_can_be_spared_for_good(data) {
        const content = lookInto(4), list = findChild(content, "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        laidOut();
        data.ask(list);
        tryVerify(() => item("itemMenu").opened);
        compare(item("neverSuggest").text, "Never suggest this");
        mouseClick(item("neverSuggest"));
        tryCompare(list, "count", 22);
        compare(list.currentIndex, 1);
        laidOut();
        verify(list.itemAtIndex(1).Accessible.name.startsWith(path(2)));
        text("Never suggested again: " + path(1) + ". The menu of the settings shows the list.", content);
        verify(item("itemsSheet").opened);
    }

    function test_the_look_ends_with_the_last_item() {
        const content = lookInto(0), list = findChild(content, "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        for (let left = list.count; left > 0; --left) {
            keyClick(Qt.Key_Menu);
            tryVerify(() => item("itemMenu").opened);
            keyClick(Qt.Key_Return);
            tryCompare(list, "count", left - 1);
            tryVerify(() => !item("itemMenu").visible);
        }
        tryVerify(() => !item("itemsSheet").visible);
    }

    function test_a_path_can_be_copied_data() {
        return [
            { tag: "button", copy: (line) => mouseClick(findChild(line, "copyPath")) },
            { tag: "key", copy: () => keyClick(Qt.Key_C, Qt.ControlModifier) }
        ];
    }

    function test_a_path_can_be_copied(data) {
        const list = findChild(lookInto(4), "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        compare(list.currentIndex, 0);
        keyClick(Qt.Key_Down);
        compare(list.currentIndex, 1);
        laidOut();
        compare(copiedBy(() => data.copy(list.currentItem)), path(1));
    }

    function test_an_item_can_be_shown_in_files_data() {
        return [
            { tag: "button", show: (line) => mouseClick(findChild(line, "showInFiles")) },
            { tag: "return", show: () => keyClick(Qt.Key_Return) },
            { tag: "enter", show: () => keyClick(Qt.Key_Enter) }
        ];
    }

    function test_an_item_can_be_shown_in_files(data) {
        const list = findChild(lookInto(4), "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        compare(demo.shownInFiles, []);
        laidOut();
        data.show(list.currentItem);
        compare(demo.shownInFiles, [path(1)]);
        verify(item("itemsSheet").opened, "and the look goes on");
    }

    function test_a_press_never_acts_on_an_item_it_did_not_begin_on() {
        const content = lookInto(4);
        const list = findChild(content, "items");
        const line = list.itemAtIndex(3);
        mouseMove(line, 40, 18);
        laidOut();
        const button = findChild(line, "copyPath");
        const place = button.mapToItem(shown, button.width / 2, button.height / 2);
        compare(copiedBy(() => {
            mousePress(shown, place.x, place.y);
            findChild(content, "largestFirst").clicked();
            laidOut();
            mouseRelease(shown, place.x, place.y);
        }), "something else");
        mouseMove(shown, 1, 1);
    }

    function test_the_item_that_is_pointed_at_has_its_buttons() {
        const list = findChild(lookInto(4), "items");
        const line = list.itemAtIndex(3);
        verify(!findChild(line, "showInFiles"));
        mouseMove(line, 40, 18);
        laidOut();
        mouseClick(findChild(line, "showInFiles"));
        compare(demo.shownInFiles, [path(3)]);
        mouseMove(list.itemAtIndex(5), 40, 18);
        tryVerify(() => !findChild(line, "showInFiles"));
    }

    function test_the_arrows_go_on_from_the_button_of_an_item() {
        const list = findChild(lookInto(4), "items");
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(findChild(list.currentItem, "showInFiles").activeFocus);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        compare(list.currentIndex, 2);
        compare(copiedBy(() => keyClick(Qt.Key_C, Qt.ControlModifier)), path(2));
    }

    function test_an_item_is_ticked_and_unticked_data() {
        return [
            { tag: "mouse", press: (list, line) => mouseClick(findChild(line, "tick")) },
            { tag: "space", press: (list, line) => {
                list.currentIndex = line.index;
                list.forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Space);
            } },
            { tag: "screen reader", press: (list, line) => line.Accessible.toggleAction() }
        ];
    }

    function test_an_item_is_ticked_and_unticked(data) {
        const content = lookInto(4);
        const list = findChild(content, "items");
        const line = list.itemAtIndex(3);
        compare(line.Accessible.role, Accessible.CheckBox);
        verify(line.Accessible.checked);
        data.press(list, line);
        compare(findChild(content, "itemsSummary").text, "22 of 23 items ticked · 3.97 GB of 4.02 GB");
        verify(!line.Accessible.checked);
        compare(item("row4").sizeText, "3.97 GB");
        laidOut(); // The row now has its buttons.
        data.press(list, line);
        verify(line.Accessible.checked);
        text("23 items · 4.02 GB", content);
        compare(item("row4").sizeText, "4.02 GB");
        compare(demo.selectedCount(), 8);
    }

    function test_what_the_search_shows_is_ticked_and_unticked_at_once() {
        const content = lookInto(4);
        findChild(content, "itemsSearch").forceActiveFocus();
        keyClick(Qt.Key_2);
        mouseClick(findChild(content, "untickShown"));
        compare(findChild(content, "itemsSummary").text, "18 of 23 items ticked · 3.02 GB of 4.02 GB");
        mouseClick(findChild(content, "tickShown"));
        text("23 items · 4.02 GB", content);
    }

    /// The names of the visible items, from top to bottom.
    function itemsFrom(list) {
        return seen(list.contentItem, line => line.pathText !== undefined)
            .sort((a, b) => a.y - b.y).map(line => line.Accessible.name);
    }

    function test_the_largest_items_can_be_put_first_data() {
        return [
            { tag: "mouse", press: (chip) => mouseClick(chip) },
            { tag: "space", press: (chip) => { chip.forceActiveFocus(Qt.TabFocusReason); keyClick(Qt.Key_Space); } }
        ];
    }

    function test_the_largest_items_can_be_put_first(data) {
        const content = lookInto(4);
        const list = findChild(content, "items");
        tryVerify(() => demo.withText(content, "23 items · 4.02 GB"));
        laidOut();
        const asFound = itemsFrom(list).slice(0, 3);
        compare(asFound, [path(0) + ", 56.2 MB", path(1) + ", 262 MB", path(2) + ", 94.3 MB"]);
        data.press(findChild(content, "largestFirst"));
        tryVerify(() => list.currentIndex === 0 && itemsFrom(list)[0] === path(20) + ", 498.8 MB");
        compare(itemsFrom(list).slice(0, 3), [path(20) + ", 498.8 MB", path(7) + ", 460.7 MB", path(14) + ", 300.1 MB"]);
        data.press(findChild(content, "largestFirst"));
        tryVerify(() => itemsFrom(list)[0] === asFound[0]);
        compare(demo.selectedCount(), 8);
    }

    function test_a_menu_stays_under_the_pointer_when_an_explanation_moves_its_finding() {
        show();
        demo.setExplaining(true);
        laidOut();
        mouseClick(item("row1"), 200, 20, Qt.RightButton);
        tryVerify(() => item("rowMenu").opened);
        const line = place(item("showItems")), row = place(item("row1"));
        demo.setSummary("Some caches.\n".repeat(20));
        demo.setExplaining(false);
        laidOut();
        verify(place(item("row1")).top > row.top);
        compare(place(item("showItems")).top, line.top);
        mouseClick(item("showItems"));
        tryVerify(() => item("itemsSheet").opened);
        text(item("row1").title, item("itemsSheet").contentItem);
    }

    function test_a_menu_closes_when_its_finding_is_gone() {
        show();
        mouseClick(item("row1"), 200, 20, Qt.RightButton);
        tryVerify(() => item("rowMenu").opened);
        demo.showResultsOfAnotherScan();
        tryVerify(() => !item("rowMenu").visible);
    }

    function test_the_menu_key_asks_as_well() {
        show();
        item("row0").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Menu);
        const menu = item("rowMenu");
        tryVerify(() => menu.opened);
        compare(menu.currentIndex, 0);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !menu.visible);
        verify(item("row0").activeFocus);
        verify(item("row0").visualFocus, "and shows it");
    }

    function test_shift_and_f10_ask_where_there_is_no_menu_key() {
        show();
        item("row1").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_F10, Qt.ShiftModifier);
        tryVerify(() => item("rowMenu").opened);
        keyClick(Qt.Key_Return);
        tryVerify(() => item("itemsSheet").opened);
    }

    TextEdit {
        id: clipboard

        visible: false
    }

    QtObject {
        id: pulse

        property double value
        property int turns
    }

    SequentialAnimation {
        id: pulsing

        PropertyAction { target: pulse; property: "turns"; value: 0 }
        SequentialAnimation {
            loops: Animation.Infinite

            NumberAnimation {
                target: pulse; property: "value"; from: 0.85; to: 1.2; duration: 800; easing: Motion.easeInOut
            }
            ScriptAction { script: ++pulse.turns }
            NumberAnimation {
                target: pulse; property: "value"; from: 1.2; to: 0.85; duration: 800; easing: Motion.easeInOut
            }
            ScriptAction { script: ++pulse.turns }
        }
    }

    function explain() {
        show();
        demo.setSummary("Some caches.");
        laidOut();
    }

    function test_what_was_sent_can_be_seen_from_the_explanation_data() {
        return [
            { tag: "pointer on the card", ask: () => mouseClick(item("summaryCard"), 8, 8, Qt.RightButton) },
            { tag: "pointer on the text", ask: () => mouseClick(item("explanation"), 20, 8, Qt.RightButton) },
            { tag: "menu key", ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_what_was_sent_can_be_seen_from_the_explanation(data) {
        explain();
        demo.setSent("explain.example:8443", "{\"text\":\"a\\nb\"}");
        item("explanation").forceActiveFocus(Qt.TabFocusReason);
        data.ask();
        tryVerify(() => item("cardMenu").opened);
        compare(item("showSent").text, "Show what was sent…");
        mouseClick(item("showSent"));
        const sheet = item("sentSheet");
        tryVerify(() => sheet.opened);
        compare(sheet.title, "What was sent");
        compare(findChild(sheet.contentItem, "sentRequest").text, "POST /explain HTTP/1.1\n" +
            "Host: explain.example:8443\nContent-Type: application/json\nContent-Length: 15\n\n{\"text\":\"a\\nb\"}");
        mouseClick(findChild(sheet.contentItem, "sentDone"));
        tryVerify(() => !sheet.visible);
        verify(item("explanation").activeFocus, "the keyboard goes back to where it was");
    }

    function test_no_card_is_shown_while_explanations_are_off() {
        explain();
        demo.setExplaining(true);
        verify(item("loadingCard").visible);
        demo.shown.preferences.explanations = false;
        verify(!item("loadingCard").visible);
        verify(!item("summaryCard").visible);
        demo.setExplaining(false);
        verify(!item("summaryCard").visible);
    }
}
