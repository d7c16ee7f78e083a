import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// The control with the keyboard focus has a ring around it, on every screen.
ViewCase {
    name: "FocusRing"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }

    readonly property double distance: 3
    readonly property double lineWidth: 2

    /// Calls \a check for controls of every kind, on all screens, with the radius of their corners.
    function forEveryControl(check) {
        demo.showResults();
        const corners = {
            scan: [["rail0", 9], ["themeButton", 14], ["bell", 6], ["scanMyMac", 9]],
            results: [["chipAll", 13], ["row1", 14], ["moveToTrash", 9]],
            settings: [["theme-system", 10]]
        };
        for (const section in corners) {
            demo.setSection(section);
            laidOut();
            for (const [name, radius] of corners[section]) {
                tryVerify(() => findChild(shown, name));
                check(item(name), radius);
            }
        }
    }

    /// Allows for rounding where a control ends between two pixels.
    function isNear(color, other) {
        return ["r", "g", "b"].every(part => Math.abs(color[part] - other[part]) < 0.1);
    }

    function rings(control) {
        return seen(control, part => String(part).startsWith("FocusRing"));
    }

    function test_it_lies_close_around_the_control_with_its_corners() {
        forEveryControl((control, radius) => {
            control.forceActiveFocus(Qt.TabFocusReason);
            const [ring] = rings(control), inner = place(control);
            const outer = Qt.rect(inner.x - distance, inner.y - distance,
                                  inner.width + 2 * distance, inner.height + 2 * distance);
            compare(place(ring), outer, nameOf(control));
            fuzzyCompare(ring.radius, radius + distance, 0.5, nameOf(control));
            compare(ring.border.width, lineWidth);
        });
    }

    function test_it_is_drawn_on_every_side_in_its_color_and_cut_by_nothing() {
        forEveryControl((control) => {
            control.forceActiveFocus(Qt.TabFocusReason);
            laidOut();
            const picture = grabImage(shown), inner = place(control), way = distance - lineWidth / 2;
            const middle = [inner.x + inner.width / 2, inner.y + inner.height / 2];
            for (const [x, y] of [[inner.left - way, middle[1]], [inner.right + way, middle[1]],
                                  [middle[0], inner.top - way], [middle[0], inner.bottom + way]])
                verify(isNear(picture.pixel(x, y), TidloTheme.blue), nameOf(control) + " at " + x + ", " + y);
        });
    }

    function test_around_the_scan_circle_it_is_a_circle() {
        const circle = item("scanButton");
        circle.forceActiveFocus(Qt.TabFocusReason);
        const [ring] = rings(circle);
        compare([ring.width, ring.height, ring.radius], [246, 246, 123]);
        circle.pulse = false;
        laidOut();
        const picture = grabImage(shown), box = place(circle), way = 123 - lineWidth / 2;
        const middle = [box.x + 120, box.y + 120];
        for (let turn = 0; turn < 2 * Math.PI; turn += Math.PI / 12) {
            const x = middle[0] + way * Math.cos(turn), y = middle[1] + way * Math.sin(turn);
            verify(isNear(picture.pixel(x, y), TidloTheme.blue), "at " + turn);
        }
    }

    function test_a_press_of_the_mouse_draws_none() {
        forEveryControl((control) => {
            mousePress(control);
            compare(rings(control), [], nameOf(control));
            mouseMove(control, -100, -100); // So that the press has no effect.
            mouseRelease(control, -100, -100);
        });
    }
}
