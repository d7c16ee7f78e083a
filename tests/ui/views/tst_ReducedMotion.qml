import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// Where the desktop wishes little motion, there are no endless animations, nothing overshoots, and fades are short.
ViewCase {
    name: "ReducedMotion"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }

    function cleanup() {
        awaitScreens();
        Motion.isReduced = false;
    }

    function test_the_scan_button_holds_its_breath_also_in_the_middle() {
        const button = item("scanButton");
        tryVerify(() => button.drawnBreath > 0.2);
        Motion.isReduced = true;
        fuzzyCompare(item("halo").scale, 0.96, 1e-9);
        fuzzyCompare(item("halo").opacity, 1, 1e-9);
        const before = button.breath;
        tryVerify(() => !findChild(button, "breathing").running);
        compare(button.breath, before);

        Motion.isReduced = false;
        tryVerify(() => button.drawnBreath > 0.2);
    }

    function test_the_arc_around_the_ring_stands() {
        awaitScreens();
        demo.scanAt(0.42, "Checking");
        const spinner = item("spinner"), turn = findChild(spinner, "turn");
        tryVerify(() => spinner.turnedBy > 0);
        Motion.isReduced = true;
        compare([turn.running, spinner.turnedBy], [false, 0]);
        Motion.isReduced = false;
        verify(turn.running);
    }

    function test_the_card_that_waits_stands() {
        awaitScreens();
        Motion.isReduced = true;
        demo.showResults();
        demo.setExplaining(true);
        tryVerify(() => findChild(shown, "loadingCard") && item("loadingCard").visible);
        const card = item("loadingCard"), mark = symbol("sparkles", card);
        compare([findChild(card, "turn").running, findChild(card, "pulse").running, mark.scale], [false, false, 1]);

        Motion.isReduced = false;
        tryVerify(() => mark.scale > 1);
        Motion.isReduced = true;
        compare([findChild(card, "turn").running, findChild(card, "pulse").running, mark.scale], [false, false, 1]);
    }

    function test_a_tick_is_there_at_once() {
        awaitScreens();
        Motion.isReduced = true;
        demo.showResults();
        tryVerify(() => findChild(shown, "row0"));
        const row = item("row0"), ticked = row.ticked;
        row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare([row.ticked, row.tickScale], [!ticked, 1]);
    }

    function test_a_ring_has_its_value_at_once() {
        awaitScreens();
        Motion.isReduced = true;
        showAnew();
        const rings = seen(shown, part => part.animate !== undefined && part.shortest !== undefined);
        verify(rings.length > 0);
        for (const ring of rings)
            fuzzyCompare(ring.shown, Math.min(Math.max(ring.value, ring.shortest), 1), 1e-9);
    }

    /// The duration of each part; the parts exist once they were used.
    function durations(transition) {
        const parts = [];
        for (let i = 0; i < transition.animations.length; ++i)
            parts.push(transition.animations[i].duration);
        return parts;
    }

    function test_a_question_comes_and_goes_without_growing_and_shortly() {
        const alert = item("moveAlert");
        Motion.isReduced = true;
        const grown = furthestApart(() => alert.scale, () => Fit.scale, () => {
            demo.showMovePrompt(true);
            tryVerify(() => alert.opened);
        });
        compare(grown, 0);
        demo.showMovePrompt(false);
        tryVerify(() => !alert.visible);

        compare([durations(alert.enter), durations(alert.exit)], [[100, 100], [100]]);
        Motion.isReduced = false;
        compare([durations(alert.enter), durations(alert.exit)], [[160, 160], [120]]);
    }

    function test_a_scroll_bar_fades_shortly_data() {
        return [{ tag: "reduced", reduced: true, duration: 100 }, { tag: "as ever", reduced: false, duration: 200 }];
    }

    function test_a_scroll_bar_fades_shortly(data) {
        Motion.isReduced = data.reduced;
        const bar = createTemporaryObject(scrollBar, shown);
        fade.duration = data.duration;
        fuzzyCompare(bar.contentItem.opacity, 0.35, 1e-9);
        bar.active = true;
        fade.restart();
        const apart = furthestApart(() => bar.contentItem.opacity, () => figure.opacity,
                                    () => tryCompare(figure, "opacity", 1));
        verify(apart < 1e-6, "it is " + apart + " off");
    }

    Component {
        id: scrollBar

        OverlayScrollBar {
            size: 0.5
            height: 100
        }
    }

    QtObject {
        id: figure

        property double opacity: 0.35
    }

    NumberAnimation {
        id: fade

        target: figure
        property: "opacity"
        from: 0.35
        to: 1
    }
}
