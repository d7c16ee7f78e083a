import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// Larger texts fit into their places.
ViewCase {
    id: root

    /// How much larger than its smallest size the content is.
    property double room: 1

    width: 1350 * room
    height: 720 * room
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
        room = 1;
        Motion.isReduced = false;
    }

    /// The visible part of a text's words.
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

    /// Whether its words extend beyond their container, such as a button.
    function bursts(item) {
        const words = wordsOf(item);
        for (let above = item.parent; above; above = above.parent) {
            const box = above.mapToItem(shown, 0, 0, above.width, above.height);
            if (above.background && (words.left < box.left || words.right > box.right))
                return true;
        }
        return false;
    }

    function overlap(one, other) {
        const across = Math.min(one.right, other.right) - Math.max(one.left, other.left);
        const along = Math.min(one.bottom, other.bottom) - Math.max(one.top, other.top);
        return across > 1 && along > 3; // The lines have space above and below.
    }

    /// Each function prepares a state and returns the item whose texts are checked.
    readonly property var states: ({
        landing: () => shown,
        scanning: () => (demo.scanAt(0.72, "Checking old downloads & large untouched files"), shown),
        results: () => (demo.showResults(), shown),
        explaining: () => (demo.showResults(), demo.setExplaining(true), shown),
        report: () => (demo.setSection("report"), demo.setReport(5e9, 12, 1, 0.6), shown),
        settings: () => (demo.setSection("settings"), shown),
        wizard: () => opened("setupSheet", () => demo.shown.app.showSetupWizard = true),
        sent: () => opened("sentSheet", () => item("sentSheet").open()),
        items: () => {
            demo.showResults();
            tryVerify(() => findChild(shown, "row0"));
            return opened("itemsSheet", () => item("row0").inspected());
        },
        menu: () => {
            demo.showResults();
            tryVerify(() => findChild(shown, "row0"));
            return opened("rowMenu", () => mouseClick(item("row0"), 20, 20, Qt.RightButton));
        },
        alert: () => opened("moveAlert", () => demo.showMovePrompt(true))
    })

    function opened(name, open) {
        open();
        tryVerify(() => item(name).opened);
        return item(name).contentItem;
    }

    function test_larger_texts_are_not_cut_and_overlap_nothing_data() {
        return Object.keys(states).map(state => ({ tag: state }));
    }

    function test_larger_texts_are_not_cut_and_overlap_nothing(data) {
        Motion.isReduced = true;
        awaitScreens();
        const read = states[data.tag]();
        laidOut();
        const isCut = item => item.truncated || item.contentWidth > item.width + 1 || item.contentHeight > item.height + 1;
        const before = texts(read).filter(isCut).map(nameOf), wrong = [];
        for (const scale of [1.25, 1.5]) {
            TidloType.scale = scale;
            room = scale / 1.25; // As the window sets it.
            laidOut();
            const inSight = texts(read).filter(item => item.text !== "" && isInSight(item));
            verify(inSight.length > 0);
            for (const [number, item] of inSight.entries()) {
                const words = wordsOf(item), name = scale + ": " + nameOf(item);
                if (isCut(item) && !before.includes(nameOf(item)))
                    wrong.push(name + " is cut");
                if (bursts(item))
                    wrong.push(name + " bursts");
                if (words.left < 0 || words.top < 0 || words.right > shown.width || words.bottom > shown.height)
                    wrong.push(name + " leaves the window");
                for (const other of inSight.slice(number + 1)) {
                    if (overlap(words, wordsOf(other)))
                        wrong.push(name + " and " + nameOf(other) + " overlap");
                }
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
