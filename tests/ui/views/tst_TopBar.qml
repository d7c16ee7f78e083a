import QtQuick
import Tidlo.Design
import Tidlo.Shell

ViewCase {
    name: "TopBar"
    view: Component {
        TopBar {
            width: 1350
        }
    }

    readonly property string title: "Tidlo — AI Storage Cleaner"

    function logo() {
        return text(title).parent.children[1];
    }

    function test_its_parts_stand_in_a_row_with_room_for_the_buttons_of_the_window() {
        compare(shown.implicitHeight, 46);
        compare(place(logo()).left, 18 + 86);
        compare([logo().width, logo().height], [23, 23]);
        compare(gap(logo(), text(title)), 9);
        compare(gap(item("themeButton"), item("bell")), 12);
        compare(place(item("bell")).right, 1350 - 18);
        for (const part of [logo(), text(title), item("themeButton"), item("bell")])
            fuzzyCompare(place(part).top + part.height / 2, 23, 1, nameOf(part) + " is in the middle");
    }

    function test_the_title_and_the_bell_are_as_large_and_heavy_as_they_should_be() {
        compareFonts([[text(title), TidloType.bodyStrong], [text("Dark"), TidloType.smallStrong]]);
        compareSymbols([[symbol("moon.fill"), 13, Font.Bold], [symbol("bell"), 14, Font.DemiBold]]);
    }

    function test_everything_has_its_color() {
        const button = item("themeButton"), words = button.contentItem.children[1];
        compareColors([
            [text(title), "color", "primaryText"], [words, "color", "primaryText"],
            [button.contentItem.children[0], "color", "blue"], [button.background, "color", "controlSurface"],
            [button.background, "border.color", "controlBorder"], [item("hairline"), "color", "controlBorder"]
        ]);
    }

    function test_only_the_light_scheme_has_a_line_at_the_bottom() {
        compareNumbers([[item("hairline"), "height", 0, 1]]);
        compare(place(item("hairline")), Qt.rect(0, 45, 1350, 1));
    }

    function test_the_theme_button_is_a_capsule_around_its_symbol_and_label() {
        const button = item("themeButton"), moon = symbol("moon.fill"), words = text("Dark");
        compare([button.leftPadding, button.rightPadding, button.topPadding, button.bottomPadding], [11, 11, 6, 6]);
        compare(gap(moon, words), 6);
        compare(button.implicitWidth, Math.ceil(11 + moon.width + 6 + words.width + 11));
        fuzzyCompare(button.implicitHeight, Math.max(moon.height, words.height) + 2 * 6, 1e-6);
        compare(button.background.radius, button.height / 2);
        compare(button.background.border.width, 1);
    }

    function test_a_pointer_that_rests_on_the_theme_button_is_told_what_it_does() {
        const button = item("themeButton");
        const tip = Array.from(button.data).find(part => part.delay !== undefined);
        verify(!tip.visible);
        mouseMove(button, 5, 5);
        tryVerify(() => tip.opened);
        compare(demo.texts(tip.contentItem), ["Switch Theme (Dark / Light / System)"]);
        mouseMove(shown, 300, 23);
        tryVerify(() => !tip.visible);
    }
}
