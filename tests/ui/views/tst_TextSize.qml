import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// Texts that are a quarter larger fit where they stand.
ViewCase {
    name: "TextSize"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }

    function cleanup() {
        awaitScreens();
        TidloType.scale = 1;
        Motion.isReduced = false;
    }

    /// What is seen of the words of a text.
    function wordsOf(item) {
        const left = item.horizontalAlignment === Text.AlignHCenter ? (item.width - item.contentWidth) / 2
                   : item.horizontalAlignment === Text.AlignRight ? item.width - item.contentWidth : 0;
        const top = item.verticalAlignment === Text.AlignVCenter ? (item.height - item.contentHeight) / 2 : 0;
        return item.mapToItem(shown, left, top, item.contentWidth, item.contentHeight);
    }

    function isInSight(item) {
        const words = wordsOf(item);
        for (let above = item.parent; above; above = above.parent) {
            const box = above.mapToItem(shown, 0, 0, above.width, above.height);
            if (above.opacity === 0)
                return false;
            if (above.clip && (words.bottom > box.bottom || words.top < box.top))
                return false; // It scrolls.
        }
        return true;
    }

    function overlap(one, other) {
        const across = Math.min(one.right, other.right) - Math.max(one.left, other.left);
        const along = Math.min(one.bottom, other.bottom) - Math.max(one.top, other.top);
        return across > 1 && along > 3; // Lines have room above and below.
    }

    readonly property var states: ({
        landing: () => {},
        scanning: () => demo.scanAt(0.72, "Checking old downloads & large untouched files"),
        results: () => demo.showResults(),
        explaining: () => { demo.showResults(); demo.setExplaining(true); },
        report: () => { demo.setSection("report"); demo.setReport(5e9, 12, 1, 0.6); },
        settings: () => demo.setSection("settings")
    })

    function test_a_quarter_larger_nothing_is_cut_and_nothing_overlaps_data() {
        return Object.keys(states).map(state => ({ tag: state }));
    }

    function test_a_quarter_larger_nothing_is_cut_and_nothing_overlaps(data) {
        Motion.isReduced = true;
        awaitScreens();
        states[data.tag]();
        laidOut();
        const isCut = item => item.truncated || item.contentWidth > item.width + 1 || item.contentHeight > item.height + 1;
        const before = texts(shown).filter(isCut).map(nameOf);
        TidloType.scale = 1.25;
        laidOut();
        const wrong = [], read = texts(shown).filter(item => item.text !== "" && isInSight(item));
        verify(read.length > 5);
        for (const [number, item] of read.entries()) {
            const words = wordsOf(item);
            if (isCut(item) && !before.includes(nameOf(item)))
                wrong.push(nameOf(item) + " is cut");
            if (words.left < 0 || words.top < 0 || words.right > shown.width || words.bottom > shown.height)
                wrong.push(nameOf(item) + " leaves the window");
            for (const other of read.slice(number + 1)) {
                if (overlap(words, wordsOf(other)))
                    wrong.push(nameOf(item) + " and " + nameOf(other) + " overlap");
            }
        }
        compare(wrong, []);
    }

    function test_every_text_grows_while_the_window_is_open() {
        awaitScreens();
        demo.showResults();
        laidOut();
        const sizes = texts(shown).map(item => [item, item.font.pointSize]);
        TidloType.scale = 1.25;
        for (const [item, size] of sizes)
            fuzzyCompare(item.font.pointSize, size * 1.25, 0.01, nameOf(item));
    }
}
