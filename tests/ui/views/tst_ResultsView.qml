import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ResultsView"
    view: Component {
        ResultsView {
            width: 961
            height: 674
            app: demo.app
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
        text("48.57 GB selected"); // The hidden ones count as well.
    }

    function test_there_are_three_chips_and_each_shows_whether_it_is_chosen() {
        show();
        const chosen = item("chipAll"), other = item("chipSafe");
        compareColor(chosen.background.color, 0.388, 0.682, 0.718, 0.16);
        compareColor(chosen.background.border.color, 0.388, 0.682, 0.718, 0.45);
        compareColor(other.background.color, 152 / 255, 152 / 255, 157 / 255, 0.12);
        compareColor(other.background.border.color, 152 / 255, 152 / 255, 157 / 255, 0.2);
        for (const words of ["All", "Safe", "Review"])
            text(words);
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

    function test_risks_have_their_colours_data() {
        return [
            { tag: "Safe to delete", size: [99, 230, 226], badge: [99, 230, 226] },
            { tag: "Rebuildable", size: [10, 132, 255], badge: [10, 132, 255] },
            { tag: "Review first", size: [255, 214, 10], badge: [255, 214, 10] },
            { tag: "Never touch", size: [255, 69, 58], badge: [255, 0.35 * 255, 0.39 * 255] }
        ];
    }

    function test_risks_have_their_colours(data) {
        show();
        demo.changeCandidate(0, { risk: data.tag });
        const row = item("row0");
        compareColor(demo.withText(row, "18.43 GB").color, data.size[0] / 255, data.size[1] / 255, data.size[2] / 255);
        compareColor(demo.withText(row, data.tag).color, data.badge[0] / 255, data.badge[1] / 255, data.badge[2] / 255);
        compareColor(findChild(row, "bar").color, data.size[0] / 255, data.size[1] / 255, data.size[2] / 255);
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
        demo.app.isGeneratingAI = true;
        verify(item("loadingCard").visible);
        verify(!item("summaryCard").visible);
        text("AI Storage Analysis in progress...");
        text("Analyzing project bloat, node_modules, and cache files with Gemini AI...");
        demo.app.isGeneratingAI = false;
        verify(!item("loadingCard").visible);
        verify(item("summaryCard").visible);
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

    function test_what_is_never_to_be_touched_cannot_be_ticked() {
        show();
        demo.changeCandidate(0, { risk: "Never touch", selected: false });
        mouseClick(item("row0"));
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

    function test_the_report_can_always_be_seen_but_nothing_moved_without_a_selection() {
        show();
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { selected: false });
        verify(!item("moveToTrash").enabled);
        mouseClick(item("moveToTrash"));
        compare(demo.phase, "results");
        verify(item("viewReport").enabled);
        mouseClick(item("viewReport"));
        compare(demo.phase, "report");
        compare(demo.section, "report");
    }

    function test_a_finding_can_be_looked_into() {
        show();
        mouseClick(item("row4"), 200, 20, Qt.RightButton);
        const menu = findChild(item("row4"), "rowMenu");
        tryVerify(() => menu.opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        const sheet = item("itemsSheet");
        tryVerify(() => sheet.opened);
        const content = sheet.contentItem;
        verify(demo.withText(content, "Downloads / old installers and archives"));
        const list = findChild(content, "items");
        compare(list.count, 23);
        findChild(content, "itemsSearch").forceActiveFocus();
        keyClick(Qt.Key_2);
        compare(list.count, 5); // project-2, project-12 and project-20 to 22
        compare(demo.selectedCount(), 8);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !sheet.visible);
    }

    function test_the_menu_key_asks_as_well() {
        show();
        item("row0").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Menu);
        const menu = findChild(item("row0"), "rowMenu");
        tryVerify(() => menu.opened);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !menu.visible);
        verify(item("row0").activeFocus);
    }
}
