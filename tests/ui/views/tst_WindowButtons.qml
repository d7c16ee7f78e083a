import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// Close, minimise and zoom, where the system does not draw them.
ViewCase {
    name: "WindowButtons"
    view: Component {
        Item {
            id: bar

            property int zooms: 0
            property bool isInFront: false
            readonly property alias front: front

            width: 200
            height: 100

            Window {
                id: front

                width: 10
                height: 10
                visible: bar.isInFront
            }
            Window {
                id: behind
            }
            WindowButtons {
                window: bar.isInFront ? front : behind
                onZoomRequested: ++bar.zooms
            }
        }
    }

    readonly property var discs: [
        { tag: "closeButton", color: "#ff5f57", glyph: "×" }, { tag: "minimiseButton", color: "#febc2e", glyph: "−" },
        { tag: "zoomButton", color: "#28c840", glyph: "+" }
    ]

    function pointElsewhere() {
        mouseMove(shown, 150, 80);
    }

    function glyphs() {
        return texts(shown).map(one => one.text);
    }

    function test_they_are_discs_of_twelve_points_and_stand_twenty_apart() {
        for (const [number, disc] of discs.entries()) {
            compare(place(item(disc.tag)), Qt.rect(20 * number, 0, 12, 12));
            compare(item(disc.tag).background.radius, 6);
        }
    }

    function test_each_has_its_color_in_both_schemes() {
        pointElsewhere();
        shown.isInFront = true;
        tryCompare(shown.front, "active", true);
        compareColors(discs.map(disc => [item(disc.tag).background, "color", disc.color]));
        compare(glyphs(), []);
    }

    function test_those_of_a_window_behind_are_gray_until_they_are_pointed_at() {
        pointElsewhere();
        compareColors(discs.map(disc => [item(disc.tag).background, "color", "systemGray", 0.45]));

        mouseMove(item("minimiseButton"));

        compareColors(discs.map(disc => [item(disc.tag).background, "color", disc.color]));
    }

    function test_pointed_at_they_all_say_what_they_do() {
        mouseMove(item("zoomButton"));

        tryVerify(() => glyphs().length > 0);
        compare(glyphs(), discs.map(disc => disc.glyph));
    }

    function test_what_the_keyboard_reaches_says_what_it_does() {
        pointElsewhere();
        item("closeButton").forceActiveFocus(Qt.TabFocusReason);

        compare(glyphs(), ["×"]);
    }

    function test_zoom_is_asked_for() {
        mouseClick(item("zoomButton"));

        compare(shown.zooms, 1);
    }
}
