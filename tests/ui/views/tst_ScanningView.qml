import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ScanningView"
    view: Component {
        ScanningView {
            width: 961
            height: 674
            progress: demo.shown.progress
        }
    }

    function test_steps_tick_off_as_the_scan_goes_on_data() {
        return [
            { tag: "nothing yet", progress: 0, symbols: ["circle", "circle", "circle", "circle"], percent: "0%" },
            { tag: "just before the first", progress: 0.1799, symbols: ["circle", "circle", "circle", "circle"], percent: "18%" },
            { tag: "the first begins", progress: 0.18, symbols: ["arrow.triangle.2.circlepath", "circle", "circle", "circle"], percent: "18%" },
            { tag: "the first ends", progress: 0.42, symbols: ["checkmark", "arrow.triangle.2.circlepath", "circle", "circle"], percent: "42%" },
            { tag: "the second ends", progress: 0.56, symbols: ["checkmark", "checkmark", "arrow.triangle.2.circlepath", "circle"], percent: "56%" },
            { tag: "the third ends", progress: 0.86, symbols: ["checkmark", "checkmark", "checkmark", "arrow.triangle.2.circlepath"], percent: "86%" },
            { tag: "almost", progress: 0.99, symbols: ["checkmark", "checkmark", "checkmark", "arrow.triangle.2.circlepath"], percent: "99%" },
            { tag: "done", progress: 1, symbols: ["checkmark", "checkmark", "checkmark", "checkmark"], percent: "100%" }
        ];
    }

    function test_steps_tick_off_as_the_scan_goes_on(data) {
        demo.scanAt(data.progress, "Checking");
        compare(demo.symbols(shown), data.symbols);
        compare(text(data.percent).font, TidloType.rounded(44, Font.Bold));
    }

    function test_the_ring_never_shows_less_than_a_stub() {
        demo.scanAt(0, "");
        fuzzyCompare(item("ring").shown, 0.035, 1e-9);
        demo.scanAt(0.5, "");
        fuzzyCompare(item("ring").shown, 0.5, 1e-9);
        compare(item("ring").width, 236);
        compare(item("ring").lineWidth, 18);
    }

    function test_the_keyboard_can_be_at_the_progress_and_a_screen_reader_hears_so() {
        verify(item("progressCard").activeFocusOnTab);
        verify(demo.isFocusable(item("progressCard")));
        verify(!demo.isFocusable(item("ring")));
    }

    function test_says_what_is_under_way() {
        demo.scanAt(0.42, "Checking WhatsApp Desktop storage");
        compare(text("Checking WhatsApp Desktop storage").font, TidloType.system(20, Font.Bold));
        for (const words of ["Scanning your Mac", "complete",
                "Classifying safe, rebuildable, review, and never-touch items.", "MODE", "Metadata only", "SAFETY",
                "Trash first", "Scan pipeline",
                "Tidlo is reading folder metadata and building a cleanup plan. File contents are not uploaded.",
                "Project & build files", "Temporary project data, build caches, output folders", "WhatsApp media",
                "Media cache only; chat database protected", "Caches, Downloads & Large Files",
                "App caches, old installers, and files >100MB untouched for 60+ days", "Duplicate project copies",
                "Detect latest copy and flag older folders"])
            text(words);
        compare(text("Scan pipeline").font, TidloType.system(21, Font.Bold));
    }

    function test_nothing_moves_where_what_is_under_way_takes_two_lines() {
        demo.scanAt(0.42, "Checking");
        laidOut();
        const words = text("Checking"), before = place(item("ring")), height = item("progressCard").height;
        compare(words.lineCount, 1);
        demo.scanAt(0.72, "Finding large files that nobody has opened for a long time");
        laidOut();
        compare(words.lineCount, 2);
        compare([place(item("ring")), item("progressCard").height], [before, height]);
        verify(words.implicitHeight <= words.height, words.implicitHeight + " in " + words.height);
    }

    function test_it_has_the_head_of_every_screen_with_the_percentage() {
        demo.scanAt(0.42, "");
        compareHeader("Scanning your Mac");
        compare(demo.texts(shown).slice(0, 4), ["Scanning your Mac", "4", "2", "%"]);
    }

    function test_the_percentage_of_the_head_does_not_move_while_it_counts() {
        const figure = text("Scanning your Mac").parent.children[1];
        const widths = [0.11, 0.44, 0.98].map(progress => {
            demo.scanAt(progress, "");
            laidOut();
            return figure.width;
        });
        compare(widths, [widths[0], widths[0], widths[0]]);
    }

    function test_the_ring_and_its_texts_have_their_colors_and_fonts() {
        demo.scanAt(0.42, "Checking");
        const [track, line] = gauges(item("ring"));
        for (const gauge of [track, line])
            compare([gauge.width - gauge.lineWidth, gauge.height - gauge.lineWidth, gauge.lineWidth], [236, 236, 18]);
        compare([track.from, track.to], [0, 1]);
        compare([line.from, line.roundCaps, line.rotation], [0, true, -90]);
        fuzzyCompare(line.to, 0.42, 1e-9);
        const fixed = text("Classifying safe, rebuildable, review, and never-touch items.");
        compareColors([
            [track, "color", "systemGray", [0.18, 0.16]], [line, "color", "green"], [line, "bottomColor", "blue"],
            [text("42%"), "color", "primaryText"], [text("complete"), "color", "mutedText"],
            [text("Checking"), "color", "primaryText"], [fixed, "color", "mutedText"]
        ]);
        compareFonts([
            [text("42%"), TidloType.rounded(44, Font.Bold)], [text("Checking"), TidloType.system(20, Font.Bold)]
        ]);
        for (const words of [text("Checking"), fixed])
            compare([words.horizontalAlignment, words.wrapMode], [Text.AlignHCenter, Text.Wrap]);
        const ring = place(item("ring"));
        fuzzyCompare((place(text("42%")).top + place(text("complete")).bottom) / 2, ring.top + 118, 1);
    }

    function test_the_short_arc_turns_around_the_ring_in_a_little_more_than_a_second() {
        const spinner = item("spinner"), turn = findChild(spinner, "turn");
        compare([spinner.width - spinner.lineWidth, spinner.height - spinner.lineWidth, spinner.lineWidth], [276, 276, 4]);
        fuzzyCompare(spinner.from, 0.05, 1e-9);
        fuzzyCompare(spinner.to, 0.16, 1e-9);
        compare(spinner.opacity, 0.7);
        compare([turn.from, turn.to, turn.duration, turn.easing.type], [0, 360, 1200, Easing.Linear]);
        verify(turn.running && turn.loops < 0); // Below zero means endless.
        const before = grabImage(shown);
        tryVerify(() => !grabImage(shown).equals(before));
    }

    function test_the_arc_turns_in_steps() {
        const spinner = item("spinner");
        findChild(spinner, "turn").stop();
        for (const [angle, turnedBy] of [[0, 0], [2, 0], [3, 5], [123, 125], [357, 355], [358, 0]]) {
            spinner.angle = angle;
            compare(spinner.turnedBy, turnedBy);
        }
    }

    function test_a_small_tile_is_a_caption_above_a_value() {
        for (const [caption, value] of [["MODE", "Metadata only"], ["SAFETY", "Trash first"]]) {
            const tile = text(caption).parent.parent;
            compare(text(value).parent.parent, tile);
            verify(place(text(caption)).bottom <= place(text(value)).top);
            compare(tile.radius, 9);
            compareFonts([[text(caption), TidloType.tiny], [text(value), TidloType.smallStrong]]);
            compareColors([[text(caption), "color", "mutedText"], [text(value), "color", "primaryText"]]);
        }
    }

    function test_the_head_of_the_list_has_its_fonts_and_room() {
        const note = text("Tidlo is reading folder metadata and building a cleanup plan. File contents are not uploaded.");
        compareFonts([[text("Scan pipeline"), TidloType.system(21, Font.Bold)]]);
        compareColors([
            [text("Scan pipeline"), "color", "primaryText"], [note, "color", "mutedText"],
            [item("pipelineCard"), "color", "cardSurface"], [item("progressCard"), "color", "cardSurface"]
        ]);
        compare([lineSpacing(note), note.bottomPadding], [3, 6]);
        compare([item("pipelineCard").radius, item("progressCard").radius], [10, 10]);
    }

    function test_a_step_has_the_colors_of_its_state_data() {
        return [
            { tag: "done", step: 0, symbol: "checkmark", color: "green", badge: ["green", 0.16] },
            { tag: "under way", step: 1, symbol: "arrow.triangle.2.circlepath", color: "green", badge: ["green", 0.16] },
            { tag: "waiting", step: 2, symbol: "circle", color: "mutedText", badge: ["systemGray", 0.1] },
            { tag: "waiting as well", step: 3, symbol: "circle", color: "mutedText", badge: ["systemGray", 0.1] }
        ];
    }

    function test_a_step_has_the_colors_of_its_state(data) {
        demo.scanAt(0.42, "");
        laidOut();
        const badge = demo.named(shown, "badge")[data.step], mark = badge.children[0], row = badge.parent.parent;
        const [title, detail] = texts(row);
        compare(mark.name, data.symbol);
        compare([badge.width, badge.height, badge.radius, row.radius], [30, 30, 15, 12]);
        verify(place(badge).right < place(title).left && place(title).bottom <= place(detail).top);
        compareSymbols([[mark, 12, Font.Bold]]);
        compare(title.font.weight, Font.Bold);
        compareColors([
            [badge, "color", ...data.badge], [mark, "color", data.color], [title, "color", "primaryText"],
            [detail, "color", "mutedText"]
        ]);
    }

    function test_stands_side_by_side_where_there_is_room_else_one_above_the_other() {
        const card = item("progressCard"), list = item("pipelineCard");
        const margins = 2 * 22, needed = 420 + 14 + 430 + margins;
        for (const width of [961, needed]) {
            shown.width = width;
            tryVerify(() => list.x > card.x);
            compare([card.width, list.width, list.x - (card.x + card.width)], [420, 430, 14]);
        }
        for (const width of [needed - 1, 600]) {
            shown.width = width;
            tryVerify(() => list.y > card.y);
            tryVerify(() => list.x === card.x);
            compare([card.width, list.width, list.y - (card.y + card.height)], [420, 420, 14]);
        }
    }

    function test_what_does_not_fit_can_be_scrolled_to() {
        shown.width = 600;
        const area = item("progressCard").parent.parent.parent;
        tryVerify(() => area.contentHeight > area.height);
        verify(area.contentHeight >= item("progressCard").height + 14 + item("pipelineCard").height);
    }
}
