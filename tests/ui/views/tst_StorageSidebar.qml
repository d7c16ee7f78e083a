import QtQuick
import Tidlo.Design
import Tidlo.Shell

ViewCase {
    name: "StorageSidebar"
    view: Component {
        StorageSidebar {
            height: 900
            app: demo.app
        }
    }

    readonly property var titles: ["Project files", "WhatsApp", "User caches", "Downloads", "Large & old files"]

    function cards() {
        return titles.map((title, i) => item("category" + i));
    }

    function test_before_any_scan_it_has_nothing_to_tell() {
        compare(demo.texts(shown), ["STORAGE", "Macintosh HD", "Ready",
            "0%", "USED", "Disk", "Macintosh HD usage", "0%", "0%", "FREE", "Recoverable", "Estimated cleanup space", "0%",
            "Project files", "—", "WhatsApp", "—", "User caches", "—", "Downloads", "—", "Large & old files", "—",
            "Project files", "Temporary project data · Build caches", "—", "WhatsApp", "Media cache only", "—",
            "User caches", "Browser cache · App temp files", "—", "Downloads", "Installers · Archives · Large media", "—",
            "Large & old files", ">100 MB · Unused for 60+ days", "—"]);
        compare(demo.symbols(shown), ["folder.badge.gearshape", "message.circle", "externaldrive", "arrow.down.to.line",
            "clock.arrow.circlepath"]);
        fuzzyCompare(item("diskRing").shown, 0.02, 1e-9);
        fuzzyCompare(item("recoverableRing").shown, 0.02, 1e-9);
    }

    function test_after_a_scan_it_sums_it_up() {
        demo.showResults();
        compare(item("diskStatus").text, "63% full");
        compareColor(item("diskStatus").color, 1, 0.35, 0.39);
        const texts = demo.texts(shown);
        compare(texts.filter(words => words === "22.52 GB").length, 2);
        tryVerify(() => Math.abs(item("diskRing").shown - 0.63) < 1e-9);
    }

    function test_a_disk_fuller_than_full_fills_the_ring_and_says_so() {
        demo.setFigures(1.2, 0);
        text("120% full");
        tryVerify(() => Math.abs(item("diskRing").shown - 1) < 1e-9);
    }

    function test_one_byte_is_told_and_none_is_not() {
        demo.showResults();
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { bytes: i === 2 ? 1 : 0 });
        compare(demo.texts(shown).filter(words => words === "1 byte").length, 2);
        compare(demo.texts(shown).filter(words => words === "—").length, 8);
    }

    function test_project_files_are_always_set_off_and_the_others_never() {
        const found = cards();
        compareColor(found[0].color, 10 / 255, 132 / 255, 1, 0.1);
        for (let i = 1; i < 5; ++i)
            compare(found[i].color.a, 0);
        wear("light");
        compareColor(found[0].color, 0, 122 / 255, 1, 0.08);
    }

    function test_it_is_as_wide_and_its_parts_as_high_as_they_should_be() {
        compare(shown.implicitWidth, 330);
        for (const card of cards())
            compare(card.height, 74);
        compare(item("diskRing").width, 66);
        compare(item("diskRing").lineWidth, 7);
        compareColor(shown.color, 0.071, 0.11, 0.122);
        wear("light");
        compareColor(shown.color, 0.918, 0.949, 0.957);
    }
}
