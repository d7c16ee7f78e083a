import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ReportView"
    view: Component {
        ReportView {
            anchors.fill: parent
            report: demo.shown.report
            items: demo.shown.stayedItems
        }
    }

    function test_before_a_cleanup_it_shows_what_the_selection_would_come_to() {
        demo.showResults();
        text("48.57 GB");
        text("Disk now 63% full");
        text("37%");
        text("103");
    }

    function test_it_counts_paths_and_not_findings() {
        demo.showResults();
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { selected: i === 6 || i === 7 });
        text("10"); // Four and six.
    }

    function test_with_nothing_selected_it_shows_nothing_recovered() {
        demo.setFigures(0.5, 0);
        text("Zero KB");
        text("Disk now 50% full");
    }

    function test_after_a_cleanup_it_shows_what_that_did() {
        demo.showResults();
        demo.setReport(1300000000, 12, 2, 0.61);
        text("1.3 GB");
        text("Disk now 61% full");
        text("39%");
        text("12");
        text("2");
    }

    function test_the_two_categories_are_read_from_the_findings_as_they_are() {
        demo.showResults();
        demo.setReport(1, 1, 1, 0.5);
        text("22.52 GB");
        text("6.27 GB");
        demo.removeCandidates();
        compare(demo.texts(shown).filter(words => words === "Zero KB").length, 2);
    }

    function ring() {
        return text("FREE").parent.parent.parent;
    }

    function test_the_ring_is_given_the_free_share_but_never_less_than_a_sliver_data() {
        return [
            { tag: "an empty disk", used: 0, value: 1 }, { tag: "a disk in use", used: 0.61, value: 0.39 },
            { tag: "almost full", used: 0.985, value: 0.015 }, { tag: "fuller than the sliver", used: 0.995, value: 0.01 },
            { tag: "full", used: 1, value: 0.01 }, { tag: "fuller than full", used: 1.2, value: 0.01 }
        ];
    }

    function test_the_ring_is_given_the_free_share_but_never_less_than_a_sliver(data) {
        demo.setReport(0, 0, 0, data.used);
        fuzzyCompare(ring().share, data.value, 1e-9);
        compare([ring().label, ring().caption], ["FREE", ""]);
        compareColors([[ring(), "color", "green"]]);
    }

    function test_a_full_disk_still_shows_a_sliver_of_free_space() {
        demo.setReport(0, 0, 0, 1);
        text("Disk now 100% full");
        text("1%");
    }

    function test_says_everything_in_this_order() {
        demo.setReport(1300000000, 12, 2, 0.61);
        compare(demo.texts(shown), ["Cleanup report", "SPACE RECOVERED", "1.3 GB", "Disk now 61% full", "39%", "FREE",
            "PROJECT FILES", "Zero KB", "Source code kept intact", "WHATSAPP", "Zero KB", "Chat database protected",
            "FILES REMOVED", "12", "Moved to Trash", "PROTECTED ITEMS", "2", "Flagged never-touch",
            "Everything moved to Trash first. Nothing is permanently deleted until the Bin is emptied."]);
        compare(demo.symbols(shown), ["square.and.arrow.up", "square.and.arrow.down", "shield.checkered"]);
    }

    function test_it_has_the_head_of_every_screen() {
        compareHeader("Cleanup report");
        const symbols = [symbol("square.and.arrow.up"), symbol("square.and.arrow.down")];
        compareColors(symbols.map(mark => [mark, "color", "mutedText"]));
        verify(place(symbols[0]).right < place(symbols[1]).left);
        compare(place(symbols[1]).right, shown.width - 22);
    }

    function test_the_space_recovered_stands_on_a_tinted_card_beside_the_ring() {
        demo.setReport(1300000000, 12, 2, 0.61);
        const caption = text("SPACE RECOVERED"), size = text("1.3 GB"), disk = text("Disk now 61% full");
        const card = caption.parent.parent.parent;
        compare([card.radius, card.borderWidth], [14, 1]);
        compareFonts([[caption, TidloType.system(10, Font.Bold)], [size, TidloType.rounded(44, Font.Bold)]]);
        compareColors([
            [card, "color", "green", [0.12, 0.16]], [card, "borderColor", "green", 0.25],
            [caption, "color", "green", 0.8], [size, "color", "primaryText"], [disk, "color", "green", 0.85]
        ]);
        verify(place(caption).bottom <= place(size).top && place(size).bottom <= place(disk).top);
        const room = card.width - place(ring()).right + place(card).left;
        fuzzyCompare(place(caption).left - place(card).left, room, 1);
    }

    readonly property var titles: ["PROJECT FILES", "WHATSAPP", "FILES REMOVED", "PROTECTED ITEMS"]

    function tiles() {
        return titles.map(title => text(title).parent.parent);
    }

    function test_the_tiles_stand_in_two_columns() {
        const [first, second, third, fourth] = tiles();
        compare([gap(first, second), gap(third, fourth), gap(first, third), gap(second, fourth)], [14, 14, 14, 14]);
        compare([second.width, third.width, fourth.width], [first.width, first.width, first.width]);
        compare([place(third).left, place(fourth).left], [place(first).left, place(second).left]);
    }

    function test_a_tile_is_a_card_of_three_lines() {
        demo.setReport(1300000000, 12, 3, 0.61);
        laidOut();
        const colors = ["blue", "green", "primaryText", "red"], rows = [];
        for (const [i, tile] of tiles().entries()) {
            const [title, value, detail] = texts(tile);
            compare([tile.radius, tile.borderWidth], [10, 0]);
            verify(place(title).bottom <= place(value).top && place(value).bottom <= place(detail).top);
            compareFonts([
                [title, TidloType.tracked(TidloType.caption, 1.2)], [value, TidloType.system(22, Font.Bold)]
            ]);
            rows.push([tile, "color", "cardSurface"], [title, "color", "mutedText"], [value, "color", colors[i]],
                      [detail, "color", "mutedText"]);
        }
        compareColors(rows);
    }

    function test_the_last_line_is_a_symbol_and_a_promise() {
        const promise = text("Everything moved to Trash first. Nothing is permanently deleted until the Bin is emptied.");
        const mark = symbol("shield.checkered");
        compareFonts([[promise, TidloType.callout]]);
        compare(lineSpacing(promise), 3);
        compareColors([[mark, "color", "green"], [promise, "color", "mutedText"]]);
        verify(place(mark).right < place(promise).left);
        verify(place(tiles()[3]).bottom < place(promise).top);
    }

    function test_what_stayed_can_be_read_with_the_reason_data() {
        return [
            { tag: "pointer", current: -1, ask: () => mouseClick(shown, 400, 300, Qt.RightButton) },
            { tag: "menu key", current: 1, ask: () => keyClick(Qt.Key_Menu) },
            { tag: "shift and F10", current: 1, ask: () => keyClick(Qt.Key_F10, Qt.ShiftModifier) }
        ];
    }

    function test_what_stayed_can_be_read_with_the_reason(data) {
        demo.cleanUpInVain(2);
        data.ask();
        const menu = item("reportMenu");
        tryVerify(() => menu.opened);
        compare(menu.currentIndex, data.current);
        mouseClick(item("showStayed"));
        const sheet = item("stayedSheet");
        tryVerify(() => sheet.opened);
        const list = findChild(sheet.contentItem, "items");
        compare(list.count, 2);
        text("What stayed", sheet.contentItem);
        text("2 items could not be moved to the Trash", sheet.contentItem);
        laidOut();
        verify(list.itemAtIndex(1).Accessible.name.endsWith("/stays-1, It holds a Trash."));
        text("It holds a Trash.", list.itemAtIndex(1));
        keyClick(Qt.Key_Escape);
        tryVerify(() => !sheet.visible);
    }

    function test_where_nothing_stayed_there_is_no_menu() {
        demo.showResults();
        demo.setReport(1, 1, 1, 0.5);
        mouseClick(shown, 400, 300, Qt.RightButton);
        keyClick(Qt.Key_Menu);
        verify(!item("reportMenu").visible);
    }

    function test_without_a_cleanup_of_this_run_nothing_can_be_put_back() {
        demo.cleanUpInVain(1);
        mouseClick(shown, 400, 300, Qt.RightButton);
        tryVerify(() => item("reportMenu").opened);
        verify(!item("putBack").visible);
        compare(item("putBack").height, 0);
        keyClick(Qt.Key_Escape);
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(demo.phase, "report");
    }

    function test_everything_can_be_put_back_data() {
        return [
            { tag: "menu", ask: () => {
                mouseClick(shown, 400, 300, Qt.RightButton);
                tryVerify(() => item("reportMenu").opened);
                verify(!item("showStayed").visible);
                mouseClick(item("putBack"));
            } },
            { tag: "undo", ask: () => keyClick(Qt.Key_Z, Qt.ControlModifier) }
        ];
    }

    function test_everything_can_be_put_back(data) {
        demo.cleanUp();
        data.ask();
        compare(demo.phase, "scanning");
        tryCompare(demo, "phase", "results");
        compare(demo.putBack, 1);
    }
}
