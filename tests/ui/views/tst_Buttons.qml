import QtQuick
import Tidlo.Design

ViewCase {
    name: "Buttons"
    view: Component {
        Column {
            spacing: 20

            PrimaryButtonStyle { objectName: "primary"; text: "Primary" }
            SecondaryButtonStyle { objectName: "secondary"; text: "Secondary" }
            DangerButtonStyle { objectName: "danger"; text: "Danger" }
        }
    }

    function button(style) {
        return item(style.tag);
    }

    function compareLook(style, look) {
        const surface = button(style).background, label = button(style).contentItem;
        const rows = [[label, "color", ...look.text], [surface, "color", ...look.fill]];
        if (look.border)
            rows.push([surface, "borderColor", ...look.border]);
        compareColors(rows);
    }

    function styles() {
        return [
            { tag: "primary", font: TidloType.system(13, Font.Bold), side: 28, border: 0 },
            { tag: "secondary", font: TidloType.system(13, Font.DemiBold), side: 24, border: 1 },
            { tag: "danger", font: TidloType.system(13, Font.DemiBold), side: 24, border: 1 }
        ];
    }

    function test_a_style_has_its_font_room_and_corners_data() {
        return styles();
    }

    function test_a_style_has_its_font_room_and_corners(style) {
        const made = button(style), label = made.contentItem, surface = made.background;
        compare(label.font, style.font);
        compare(label.text, made.text);
        compare([made.leftPadding, made.rightPadding, made.topPadding, made.bottomPadding], [style.side, style.side, 13, 13]);
        compare(made.width, Math.ceil(label.implicitWidth + 2 * style.side));
        fuzzyCompare(made.height, label.implicitHeight + 2 * 13, 1e-6);
        compare([surface.radius, surface.borderWidth], [9, style.border]);
        compare([surface.width, surface.height], [made.width, made.height]);
    }

    function test_an_enabled_button_has_its_colors_data() {
        return [
            { tag: "primary", text: ["black"], fill: ["green"] },
            { tag: "secondary", text: ["mutedText"], fill: ["controlSurface"], border: ["controlBorder"] },
            { tag: "danger", text: ["red"], fill: ["red", 0.1], border: ["red", 0.35] }
        ];
    }

    function test_an_enabled_button_has_its_colors(style) {
        compareLook(style, style);
    }

    function test_a_pressed_button_has_its_colors_data() {
        return [
            { tag: "primary", text: ["black"], fill: ["green", 0.75] },
            { tag: "secondary", text: ["mutedText"], fill: ["controlSurface", 0.7], border: ["controlBorder"] },
            { tag: "danger", text: ["red"], fill: ["red", 0.16], border: ["red", 0.35] }
        ];
    }

    function test_a_pressed_button_has_its_colors(style) {
        mousePress(button(style));
        verify(button(style).pressed);
        compareLook(style, style);
        mouseRelease(button(style));
    }

    function test_a_disabled_button_has_its_colors_data() {
        return [
            { tag: "primary", text: ["mutedText", 0.56], fill: ["controlSurface"] },
            { tag: "secondary", text: ["mutedText", 0.44], fill: ["controlSurface", 0.42], border: ["controlBorder", 0.5] },
            { tag: "danger", text: ["mutedText", 0.55], fill: ["red", 0.04], border: ["red", 0.12] }
        ];
    }

    function test_a_disabled_button_has_its_colors(style) {
        button(style).enabled = false;
        compareLook(style, style);
    }

    function test_only_the_filled_button_shrinks_while_it_is_pressed_data() {
        return [{ tag: "primary", pressed: 0.98 }, { tag: "secondary", pressed: 1 }, { tag: "danger", pressed: 1 }];
    }

    function test_only_the_filled_button_shrinks_while_it_is_pressed(style) {
        const made = button(style);
        compare(made.scale, 1);
        mousePress(made);
        compare(made.scale, style.pressed);
        compare(made.transformOrigin, Item.Center);
        mouseRelease(made);
        compare(made.scale, 1);
    }

    function test_a_disabled_button_neither_shrinks_nor_is_pressed_data() {
        return styles();
    }

    function test_a_disabled_button_neither_shrinks_nor_is_pressed(style) {
        const made = button(style);
        let presses = 0;
        made.clicked.connect(() => ++presses);
        mousePress(made);
        made.enabled = false;
        compare(made.scale, 1);
        mouseRelease(made);
        mouseClick(made);
        made.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        compare(made.scale, 1);
        compare(presses, 0);
    }
}
