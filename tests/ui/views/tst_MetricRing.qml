import QtQuick
import Tidlo.Design

ViewCase {
    id: root

    property double value: 0.63

    name: "MetricRing"
    view: Component {
        MetricRing {
            objectName: "metric"
            share: root.value
            valueText: "63%"
            label: "FREE"
            caption: "of the disk"
            color: TidloTheme.green
        }
    }

    function ring() {
        return text("FREE").parent.parent;
    }

    function show(value) {
        root.value = value;
        showAnew();
    }

    function cleanup() {
        root.value = 0.63;
    }

    function test_it_is_a_ring_above_its_caption() {
        compare([ring().width, ring().height, ring().lineWidth], [72, 72, 8]);
        compare(shown.spacing, 8);
        compare(gap(ring(), text("of the disk")), 8);
        const [track, line] = gauges(ring());
        for (const gauge of [track, line])
            compare([gauge.width - gauge.lineWidth, gauge.height - gauge.lineWidth, gauge.lineWidth], [72, 72, 8]);
        compare([track.from, track.to], [0, 1]);
        compare([line.from, line.roundCaps, line.rotation], [0, true, -90]);
    }

    function test_its_texts_and_colors() {
        compareFonts([
            [text("63%"), TidloType.rounded(20, Font.Bold)], [text("FREE"), TidloType.system(9, Font.Bold)],
            [text("of the disk"), TidloType.tiny]
        ]);
        const [track, line] = gauges(ring());
        compareColors([
            [track, "color", "systemGray", [0.2, 0.15]], [line, "color", "green"], [text("63%"), "color", "primaryText"],
            [text("FREE"), "color", "mutedText"], [text("of the disk"), "color", "mutedText"]
        ]);
    }

    function test_it_grows_from_a_stub_to_its_value_once_and_then_follows_it() {
        show(0.63);
        compareGrowth(ring(), 0.63);
        for (const value of [0.9, 0.1]) {
            root.value = value;
            fuzzyCompare(ring().shown, value, 1e-9);
            fuzzyCompare(gauges(ring())[1].to, value, 1e-9);
        }
    }

    function test_it_shows_neither_less_than_a_stub_nor_more_than_a_circle_data() {
        return [
            { tag: "below nothing", value: -1, shown: 0.02 }, { tag: "nothing", value: 0, shown: 0.02 },
            { tag: "hardly anything", value: 0.01, shown: 0.02 }, { tag: "a little more", value: 0.03, shown: 0.03 },
            { tag: "everything", value: 1, shown: 1 }, { tag: "more than that", value: 1.2, shown: 1 }
        ];
    }

    function test_it_shows_neither_less_than_a_stub_nor_more_than_a_circle(data) {
        show(data.value);
        compareGrowth(ring(), data.shown);
    }
}
