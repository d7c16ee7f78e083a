import QtQuick
import Tidlo.Design
import Tidlo.Shell

ViewCase {
    name: "StorageSidebar"
    view: Component {
        StorageSidebar {
            height: 900
            figures: demo.shown.storage
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

    function test_a_category_keeps_its_card_when_its_bytes_change() {
        const before = [...cards(), ...legend()];
        demo.showResults();
        compare(demo.texts(shown).filter(words => words === "22.52 GB").length, 2);
        const after = [...cards(), ...legend()];
        verify(before.every((part, i) => part === after[i]));
    }

    readonly property var colors: ["systemBlue", "systemMint", "systemPurple", "systemYellow", "systemOrange"]

    function metricCard(ring) {
        return item(ring).parent.parent;
    }

    function legend() {
        return titles.map(title => text(title).parent);
    }

    function divider() {
        return seen(shown, part => part.width === 330 && part.height === 1)[0];
    }

    function test_its_parts_stand_below_each_other() {
        compare([shown.implicitWidth, shown.width], [330, 330]);
        const heading = text("STORAGE"), disk = text("Macintosh HD").parent, lines = legend(), found = cards();
        const metrics = [metricCard("diskRing"), metricCard("recoverableRing")];
        for (const [part, left, right] of [[heading, 20], [disk, 20, 20], [metrics[0], 20, 20], [metrics[1], 20, 20],
                [lines[0], 20, 20], [lines[4], 20, 20], [divider(), 0, 0], [found[0], 0, 0], [found[4], 0, 0]]) {
            compare(place(part).left, left, nameOf(part));
            if (right !== undefined)
                compare(place(part).right, 330 - right, nameOf(part));
        }
        compare(place(item("diskStatus")).right, 330 - 20);
        compare(place(heading).top, 16);
        compare([gap(heading, disk), gap(disk, metrics[0]), gap(metrics[0], metrics[1]), gap(metrics[1], lines[0])],
                [24, 16, 10, 16]);
        for (let i = 1; i < 5; ++i) {
            compare(gap(lines[i - 1], lines[i]), 8);
            compare(gap(found[i - 1], found[i]), 0);
        }
        compare([gap(lines[4], divider()), gap(divider(), found[0])], [20, 0]);
    }

    function test_the_heading_and_the_disk_have_their_fonts_and_colors() {
        compareFonts([
            [text("STORAGE"), TidloType.tracked(TidloType.smallStrong, 1.6)], [text("Macintosh HD"), TidloType.body],
            [item("diskStatus"), TidloType.bodyStrong]
        ]);
        compareColors([
            [shown, "color", "sidebarBackground"], [text("STORAGE"), "color", "mutedText"],
            [item("diskStatus"), "color", "red"], [divider(), "color", "divider"]
        ]);
        compareNumbers([[divider(), "opacity", 0.22, 0.7]]);
    }

    function test_a_metric_is_a_ring_beside_its_words_data() {
        return [{ tag: "diskRing" }, { tag: "recoverableRing" }];
    }

    function test_a_metric_is_a_ring_beside_its_words(data) {
        const ring = item(data.tag), card = metricCard(data.tag);
        const [percent, label, title, subtitle, figure] = texts(card);
        const [track, line] = gauges(ring);
        compare([ring.width, ring.height, ring.lineWidth], [66, 66, 7]);
        for (const gauge of [track, line])
            compare([gauge.width - gauge.lineWidth, gauge.height - gauge.lineWidth, gauge.lineWidth], [66, 66, 7]);
        compare([line.from, line.roundCaps, line.rotation], [0, true, -90]);
        compare([card.radius, card.borderWidth], [12, 0]);
        compare(place(ring).left - place(card).left, 14);
        compare(place(card).right - place(title.parent).right, 14);
        compare(gap(ring, title.parent), 14);
        compare(card.implicitHeight, Math.max(ring.height, title.parent.implicitHeight) + 2 * 12);
        fuzzyCompare(place(ring).top + 33, place(card).top + card.height / 2, 0.5);
        compare([gap(title, subtitle), gap(subtitle, figure)], [4, 4]);
        compareFonts([
            [percent, TidloType.rounded(18, Font.Bold)], [label, TidloType.system(8.5, Font.Bold)],
            [title, TidloType.bodyStrong], [subtitle, TidloType.small], [figure, TidloType.system(17, Font.Bold)]
        ]);
        const color = data.tag === "diskRing" ? "red" : "green";
        compareColors([
            [card, "color", "controlSurface"], [track, "color", "systemGray", 0.18], [line, "color", color],
            [label, "color", "mutedText"], [subtitle, "color", "mutedText"], [figure, "color", color]
        ]);
    }

    function test_a_ring_grows_from_a_stub_to_its_value_once_and_then_follows_it_data() {
        return [{ tag: "diskRing", value: 0.63 }, { tag: "recoverableRing", value: 0.25 }];
    }

    function test_a_ring_grows_from_a_stub_to_its_value_once_and_then_follows_it(data) {
        demo.setFigures(0.63, 0.25);
        showAnew();
        compareGrowth(item(data.tag), data.value);
        demo.setFigures(0.9, 0.9);
        fuzzyCompare(item(data.tag).shown, 0.9, 1e-9);
        demo.setFigures(0.1, 0.1);
        fuzzyCompare(item(data.tag).shown, 0.1, 1e-9);
    }

    function test_a_line_of_the_legend_is_a_dot_a_title_and_a_figure() {
        for (const [i, line] of legend().entries()) {
            const dot = line.children[0], [title, figure] = texts(line);
            compare([dot.width, dot.height, dot.radius], [8, 8, 4]);
            compare([place(dot).left, place(figure).right], [20, 330 - 20]);
            compareFonts([[title, TidloType.sidebar], [figure, TidloType.sidebarStrong]]);
        }
    }

    function test_a_card_of_a_category_is_a_symbol_on_a_tile_its_words_and_a_figure() {
        for (const card of cards()) {
            const tile = surfaces(card)[0], mark = seen(card, part => part.weight)[0];
            const [title, subtitle, figure] = texts(card);
            compare(card.height, 74);
            compare([tile.width, tile.height, tile.radius], [34, 34, 8]);
            compare([place(tile).left, place(figure).right], [18, 330 - 18]);
            compare([gap(tile, title.parent), gap(title.parent, figure), gap(title, subtitle)], [12, 12, 2]);
            fuzzyCompare(place(tile).top + 17, place(card).top + 37, 0.5);
            compareFonts([
                [title, TidloType.bodyStrong], [subtitle, TidloType.small], [figure, TidloType.bodyStrong]
            ]);
            compareSymbols([[mark, 16, Font.DemiBold]]);
        }
    }

    function test_a_category_has_its_color_wherever_it_is_shown() {
        const rows = [];
        for (const [i, color] of colors.entries()) {
            const card = cards()[i], [title, subtitle, figure] = texts(card);
            rows.push([legend()[i].children[0], "color", color], [surfaces(card)[0], "color", color, 0.13],
                      [seen(card, part => part.weight)[0], "color", color], [subtitle, "color", "mutedText"],
                      [figure, "color", color]);
        }
        compareColors(rows);
    }

    function test_project_files_are_always_set_off_and_the_others_never() {
        const [first, ...others] = cards();
        compareColors([[first, "color", "systemBlue", [0.1, 0.08]], ...others.map(card => [card, "color", "transparent"])]);
    }
}
