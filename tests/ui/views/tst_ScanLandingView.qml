import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ScanLandingView"
    view: Component {
        ScanLandingView {
            anchors.fill: parent
            app: demo.app
        }
    }

    function test_says_what_it_is_and_what_it_promises_in_this_order() {
        compare(demo.texts(shown), ["Scan", "AI explanations on", "CLICK TO\nSCAN", "AI-assisted deep clean",
            "Understands your projects, detects duplicates, and explains every decision before cleanup.",
            "Metadata only", "Trash first", "AI optional", "SCAN MY MAC"]);
        compare(demo.symbols(shown), ["lock.shield", "trash", "sparkles"]);
    }

    function test_its_texts_are_as_large_as_they_should_be() {
        compare(text("CLICK TO\nSCAN").font, TidloType.system(17, Font.Bold));
        compare(text("AI-assisted deep clean").font, TidloType.system(28, Font.Bold));
        verify(text("Understands your projects, detects duplicates, and explains every decision before cleanup.").width <= 460);
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

    function test_the_ring_begins_to_breathe_by_itself() {
        const button = item("scanButton");
        verify(button.pulse);
        tryVerify(() => button.breath > 0);
    }

    function test_a_change_of_theme_recolours_and_does_not_start_the_pulse_anew() {
        const button = item("scanButton");
        compareColor(item("halo").color, 1, 1, 1, 0.12);
        compareColor(text("CLICK TO\nSCAN").color, 0.51, 0.612, 0.624);
        tryVerify(() => button.breath > 0.9);
        TidloTheme.preference = "light";
        verify(button.breath > 0);
        tryCompare(TidloTheme, "darkness", 0);
        verify(button.pulse);
        compareColor(item("halo").color, 0.737, 0.824, 0.839);
        compareColor(text("CLICK TO\nSCAN").color, 0.255, 0.361, 0.388);
    }

    function test_either_button_starts_a_scan_data() {
        return [{ tag: "scanButton" }, { tag: "scanMyMac" }];
    }

    function test_either_button_starts_a_scan(data) {
        mouseClick(item(data.tag));
        compare(demo.phase, "scanning");
        tryVerify(() => demo.phase === "results");
    }

    function test_two_quick_presses_start_one_scan() {
        mouseClick(item("scanButton"));
        mouseClick(item("scanButton"));
        tryVerify(() => demo.phase === "results");
        compare(demo.app.scanProgress, 1);
    }

    function test_the_keyboard_presses_too() {
        item("scanMyMac").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(demo.phase, "scanning");
        tryVerify(() => demo.phase === "results");
    }
}
