import QtQuick
import QtTest
import Tidlo.Design

/// Shows one view at a time, at the size of the window's least content, in the dark scheme at first.
TestCase {
    id: root

    required property Component view
    property Item shown

    function init() {
        demo.reset();
        wear("dark");
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

    function text(words) {
        const found = demo.withText(shown, words);
        verify(found, "\"" + words + "\" is seen");
        return found;
    }

    function compareColor(actual, red, green, blue, opacity) {
        fuzzyCompare(actual.r, red, 0.003);
        fuzzyCompare(actual.g, green, 0.003);
        fuzzyCompare(actual.b, blue, 0.003);
        fuzzyCompare(actual.a, opacity === undefined ? 1 : opacity, 0.003);
    }

    function laidOut() {
        waitForRendering(shown);
    }

    width: 1350
    height: 720
    visible: true
    when: windowShown
}
