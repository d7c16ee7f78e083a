import QtQuick
import QtTest
import Tidlo.Design

/// Shows one view at a time, at the smallest size of the window's content, at first in the dark scheme.
TestCase {
    id: root

    required property Component view
    property Item shown

    function init() {
        failOnWarning(/^(?!QUnifiedTimer)./); // Qt itself may warn if an animation begins and ends in one step.
        demo.reset();
        wear("dark");
        showAnew();
        laidOut();
    }

    function showAnew() {
        shown = createTemporaryObject(root.view, root);
        verify(shown);
    }

    function wear(theme) {
        TidloTheme.preference = theme;
        tryCompare(TidloTheme, "darkness", theme === "dark" ? 1 : 0);
    }

    function item(name) {
        const found = findChild(shown, name);
        verify(found, name + " is there");
        return found;
    }

    function text(words, within = shown) {
        const found = demo.withText(within, words);
        verify(found, "\"" + words + "\" is seen");
        return found;
    }

    function symbol(name, within = shown) {
        const found = seen(within, item => item.name === name && item.weight)[0];
        verify(found, name + " is seen");
        return found;
    }

    /// The visible items in \a within and beneath for which fits is true, in the order in which they are declared.
    function seen(within, fits) {
        if (!within.visible)
            return [];
        const found = fits(within) ? [within] : [];
        for (const child of Array.from(within.children))
            found.push(...seen(child, fits));
        return found;
    }

    function texts(within) {
        return seen(within, item => item.textFormat !== undefined);
    }

    function gauges(within) {
        return seen(within, item => item.roundCaps !== undefined);
    }

    function surfaces(within) {
        return seen(within, item => item.straightEdges !== undefined);
    }

    /// The position of an item in what is shown.
    function place(item) {
        return item.mapToItem(shown, 0, 0, item.width, item.height);
    }

    /// The space between two items that are side by side, or one above the other.
    function gap(first, second) {
        const before = place(first), after = place(second);
        return after.left >= before.right ? after.left - before.right : after.top - before.bottom;
    }

    /// The extra space between the lines of a text, beyond what its font has.
    function lineSpacing(item) {
        metrics.font = item.font;
        compare(item.lineHeightMode, Text.FixedHeight);
        return item.lineHeight - metrics.height;
    }

    function compareColor(actual, red, green, blue, opacity) {
        fuzzyCompare(actual.r, red, 0.003);
        fuzzyCompare(actual.g, green, 0.003);
        fuzzyCompare(actual.b, blue, 0.003);
        fuzzyCompare(actual.a, opacity === undefined ? 1 : opacity, 0.003);
    }

    /// Each row is an item, the name of its color property, the name of the theme's color or any other color that it
    /// should have, and the opacity to apply to that, or two opacities for the dark and the light scheme.
    function compareColors(rows) {
        for (const theme of ["dark", "light"]) {
            wear(theme);
            for (const [item, property, name, opacity] of rows) {
                const share = (Array.isArray(opacity) ? opacity[theme === "dark" ? 0 : 1] : opacity) ?? 1;
                const expected = TidloTheme.faded(TidloTheme[name] ?? name, share);
                tryVerify(() => isAlike(valueOf(item, property), expected), 2000,
                          nameOf(item) + ": " + property + " is " + name + " at " + share + " in the " + theme + " scheme");
            }
        }
    }

    /// Each row is an item, the name of a number property, and its values in the dark and the light scheme.
    function compareNumbers(rows) {
        for (const theme of ["dark", "light"]) {
            wear(theme);
            for (const [item, property, dark, light] of rows)
                fuzzyCompare(valueOf(item, property), theme === "dark" ? dark : light, 1e-4, nameOf(item) + ": " + property);
        }
    }

    /// Each row is a text and its font.
    function compareFonts(rows) {
        for (const [item, font] of rows)
            compare(item.font, font, nameOf(item));
    }

    /// Each row is a symbol, its size and its weight.
    function compareSymbols(rows) {
        for (const [item, size, weight] of rows)
            compare([item.size, item.weight], [size, weight], nameOf(item));
    }

    function compareHeader(title) {
        const header = text(title).parent.parent;
        compare(place(header), Qt.rect(0, 0, shown.width, 56));
        compare(place(text(title)).left, 22);
        compare(place(header.children[1]).right, shown.width - 22);
        compareFonts([[text(title), TidloType.section]]);
        compareColors([[header.children[0], "color", "windowBackground"], [text(title), "color", "primaryText"]]);
        compare([header.children[0].width, header.children[0].height], [header.width, header.height]);
    }

    function comparePill(words, color) {
        const label = text(words), pill = label.parent;
        fuzzyCompare(pill.implicitWidth, label.implicitWidth + 2 * 10, 1e-6);
        fuzzyCompare(pill.implicitHeight, label.implicitHeight + 2 * 6, 1e-6);
        compare(pill.radius, pill.height / 2);
        compareFonts([[label, TidloType.smallStrong]]);
        compareColors([[label, "color", color], [pill, "color", color, 0.13]]);
    }

    /// The largest difference of two figures in any frame that is drawn while something happens; requires leastFrames
    /// frames.
    function furthestApart(first, second, happens, leastFrames = 1) {
        const window = shown.Window.window, apart = [];
        const note = () => apart.push(Math.abs(first() - second()));
        window.afterAnimating.connect(note);
        happens();
        window.afterAnimating.disconnect(note);
        verify(apart.length >= leastFrames);
        return Math.max(0, ...apart);
    }

    /// Checks that a ring that has just appeared grows to value after a short wait, with an animation that begins now.
    function compareGrowth(ring, value) {
        fuzzyCompare(ring.shown, 0.02, 1e-9);
        growing.restart();
        const apart = furthestApart(() => ring.shown, () => 0.02 + (value - 0.02) * growth.share,
                                    () => tryCompare(growth, "share", 1), value > 0.02 ? 1 : 0);
        verify(apart < 1e-6, "it is " + apart + " off");
        fuzzyCompare(ring.shown, value, 1e-9);
    }

    function valueOf(item, property) {
        return property.split(".").reduce((value, name) => value[name], item);
    }

    function isAlike(color, other) {
        return ["r", "g", "b", "a"].every(part => Math.abs(color[part] - other[part]) < 0.003);
    }

    function nameOf(item) {
        return item.objectName || item.text || item.name || String(item);
    }

    /// In the whole window: the engine must not be destroyed while screens are being loaded, and it miscounts screens
    /// that are finished early because they are shown.
    function awaitScreens() {
        tryVerify(() => Array.from(item("content").children).every(child => child.status !== Loader.Loading));
    }

    function laidOut() {
        waitForRendering(shown);
    }

    width: 1350
    height: 720
    visible: true
    when: windowShown

    FontMetrics {
        id: metrics
    }

    QtObject {
        id: growth

        property double share: 0
    }

    SequentialAnimation {
        id: growing

        PropertyAction { target: growth; property: "share"; value: 0 }
        PauseAnimation { duration: 80 }
        NumberAnimation {
            target: growth
            property: "share"
            to: 1
            duration: Motion.gauge.duration
            easing: Motion.gauge.easing
        }
    }
}
