import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ScanningView"
    view: Component {
        ScanningView {
            width: 961
            height: 674
            app: demo.app
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

    function test_the_colours_of_a_step_depend_on_whether_it_has_begun() {
        demo.scanAt(0.42, "");
        const badges = demo.named(shown, "badge");
        compare(badges.length, 4);
        compareColor(badges[0].color, 0.502, 0.741, 0.769, 0.16);
        compareColor(badges[1].color, 0.502, 0.741, 0.769, 0.16);
        compareColor(badges[2].color, 152 / 255, 152 / 255, 157 / 255, 0.1);
    }

    function test_the_short_arc_turns() {
        const spinner = item("spinner");
        compare(spinner.opacity, 0.7);
        const before = grabImage(shown);
        tryVerify(() => !grabImage(shown).equals(before));
    }

    function test_stands_side_by_side_where_there_is_room_else_one_above_the_other() {
        const card = item("progressCard"), list = item("pipelineCard");
        compare(card.width, 420);
        compare(list.width, 430);
        compare(list.x - card.x, 434);
        shown.width = 800;
        tryVerify(() => list.x === card.x);
        compare(list.width, 420);
        verify(list.y >= card.y + card.height + 14);
    }
}
