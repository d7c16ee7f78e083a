import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// What the keyboard reaches has a line around it, wherever it stands.
ViewCase {
    name: "FocusRing"
    view: Component {
        RootView {
            anchors.fill: parent
            app: demo.app
            preferences: demo.preferences
        }
    }

    readonly property double distance: 3
    readonly property double lineWidth: 2

    function controls() {
        return [
            { tag: "rail0", section: "scan", corner: 9 }, { tag: "themeButton", section: "scan", corner: 14 },
            { tag: "bell", section: "scan", corner: 6 }, { tag: "scanMyMac", section: "scan", corner: 9 },
            { tag: "chipAll", section: "results", corner: 13 }, { tag: "row1", section: "results", corner: 14 },
            { tag: "moveToTrash", section: "results", corner: 9 }, { tag: "theme-system", section: "settings", corner: 10 }
        ];
    }

    /// The control of a row of the table, with what is around it on the screen.
    function control(row) {
        demo.showResults();
        demo.setSection(row.section);
        laidOut();
        return item(row.tag);
    }

    /// But for what is rounded where a control does not end between two pixels.
    function isNear(color, other) {
        return ["r", "g", "b"].every(part => Math.abs(color[part] - other[part]) < 0.1);
    }

    function rings(control) {
        return seen(control, part => String(part).startsWith("FocusRing"));
    }

    function test_it_lies_close_around_the_control_with_its_corners_data() {
        return controls();
    }

    function test_it_lies_close_around_the_control_with_its_corners(row) {
        const reached = control(row);
        reached.forceActiveFocus(Qt.TabFocusReason);

        const [ring] = rings(reached), inner = place(reached);
        const outer = Qt.rect(inner.x - distance, inner.y - distance, inner.width + 2 * distance, inner.height + 2 * distance);
        compare(place(ring), outer);
        fuzzyCompare(ring.radius, row.corner + distance, 0.5);
        compare(ring.border.width, lineWidth);
        compareColors([[ring, "border.color", "blue"], [ring, "color", "transparent"]]);
    }

    function test_it_is_drawn_on_every_side_and_cut_by_nothing_data() {
        return controls();
    }

    function test_it_is_drawn_on_every_side_and_cut_by_nothing(row) {
        const reached = control(row);
        reached.forceActiveFocus(Qt.TabFocusReason);
        laidOut();

        const picture = grabImage(shown), inner = place(reached), way = distance - lineWidth / 2;
        const middle = [inner.x + inner.width / 2, inner.y + inner.height / 2];
        for (const [x, y] of [[inner.left - way, middle[1]], [inner.right + way, middle[1]],
                              [middle[0], inner.top - way], [middle[0], inner.bottom + way]])
            verify(isNear(picture.pixel(x, y), TidloTheme.blue), x + ", " + y);
    }

    function test_a_press_of_the_mouse_draws_none_data() {
        return controls();
    }

    function test_a_press_of_the_mouse_draws_none(row) {
        const pressed = control(row);

        mousePress(pressed);

        compare(rings(pressed), []);
        mouseRelease(pressed, -100, -100); // Elsewhere, so that nothing comes of it.
    }
}
