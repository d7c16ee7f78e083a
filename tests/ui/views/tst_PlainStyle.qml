import QtQuick
import Tidlo.Shell

/// Everything that can be pressed responds to the pointer and to a press, in the same way everywhere.
ViewCase {
    name: "PlainStyle"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }

    function controls() {
        return [
            { tag: "a button of the rail", control: "rail1", section: "scan" },
            { tag: "the bell", control: "bell", section: "scan" },
            { tag: "the capsule of the theme", control: "themeButton", section: "scan" },
            { tag: "the scan circle", control: "scanButton", section: "scan" },
            { tag: "a filter that is chosen", control: "chipAll", section: "results" },
            { tag: "another filter", control: "chipSafe", section: "results" },
            { tag: "a finding", control: "row1", section: "results" },
            { tag: "a theme", control: "theme-light", section: "settings" }
        ];
    }

    function found(data) {
        demo.showResults();
        demo.setSection(data.section);
        tryVerify(() => findChild(shown, data.control));
        const control = item(data.control);
        if (control.pulse)
            control.pulse = false;
        laidOut();
        return control;
    }

    /// Moves the pointer off all controls.
    function pointElsewhere() {
        mouseMove(shown, 600, 20);
    }

    /// A picture of the control.
    function picture(control) {
        laidOut();
        const whole = grabImage(shown), box = place(control), colors = [];
        for (let y = Math.ceil(box.top); y < box.bottom - 1; y += 2) {
            for (let x = Math.ceil(box.left); x < box.right - 1; x += 2)
                colors.push(whole.pixel(x, y));
        }
        return colors;
    }

    /// How many pixels differ.
    function difference(one, other) {
        return one.filter((color, i) => !isAlike(color, other[i])).length;
    }

    function test_it_looks_otherwise_where_it_is_pointed_at_and_again_where_it_is_pressed_data() {
        return controls();
    }

    function test_it_looks_otherwise_where_it_is_pointed_at_and_again_where_it_is_pressed(data) {
        const control = found(data);
        pointElsewhere();
        const alone = picture(control);

        mouseMove(control);
        const hovered = picture(control);
        mousePress(control);
        const pressed = picture(control);
        mouseMove(control, -30, -30); // So that the press has no effect.
        mouseRelease(control, -30, -30);
        pointElsewhere();

        verify(difference(alone, hovered) > 10, "hovered");
        verify(difference(hovered, pressed) > 10, "pressed");
        compare(difference(alone, picture(control)), 0, "and as before");
    }

    function test_it_grows_fainter_in_two_steps_data() {
        return controls();
    }

    function test_it_grows_fainter_in_two_steps(data) {
        const control = found(data);
        pointElsewhere();
        compare(control.opacity, 1);
        mouseMove(control);
        compare(control.opacity, 0.88);
        mousePress(control);
        compare(control.opacity, 0.75);
        mouseMove(control, -30, -30);
        mouseRelease(control, -30, -30);
    }

    function test_a_press_of_the_space_bar_looks_as_any_other() {
        const control = found(controls()[4]);
        control.forceActiveFocus(Qt.TabFocusReason);
        keyPress(Qt.Key_Space);
        compare(control.opacity, 0.75);
        keyRelease(Qt.Key_Space);
    }

    function test_the_styles_that_have_looks_of_their_own_keep_them() {
        found({ section: "results", control: "moveToTrash" });
        const control = item("viewReport");
        mouseMove(control);
        compare(control.opacity, 1);
        mousePress(control);
        compare(control.opacity, 1);
        mouseMove(control, -30, -30);
        mouseRelease(control, -30, -30);
    }
}
