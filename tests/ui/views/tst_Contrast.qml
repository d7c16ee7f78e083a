import QtQuick
import Tidlo.Design
import Tidlo.Shell

/// Where the desktop wishes more contrast, texts and symbols stand out from their background.
ViewCase {
    name: "Contrast"
    view: Component {
        RootView {
            anchors.fill: parent
            shown: demo.shown
        }
    }


    function cleanup() {
        awaitScreens();
        TidloTheme.isHighContrast = false;
        Motion.isReduced = false;
    }

    function luminance(color) {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }

    function contrast(color, opacity, ground) {
        const share = color.a * opacity;
        const mix = part => ground[part] + (color[part] - ground[part]) * share;
        const one = luminance({ r: mix("r"), g: mix("g"), b: mix("b") }) + 0.05, other = luminance(ground) + 0.05;
        return Math.max(one, other) / Math.min(one, other);
    }

    function opacityOf(item) {
        return item ? item.opacity * opacityOf(item.parent) : 1;
    }

    function isEnabled(item) {
        return !item || item.enabled && isEnabled(item.parent);
    }

    function isInSight(item) {
        const middle = item.mapToItem(shown, item.width / 2, item.height / 2);
        for (let above = item.parent; above; above = above.parent) {
            const box = above.mapToItem(shown, 0, 0, above.width, above.height);
            if (above.clip && (middle.x < box.left || middle.y < box.top || middle.x > box.right || middle.y > box.bottom))
                return false;
        }
        return true;
    }

    /// The texts and symbols in an item and beneath that are not part of a disabled control.
    function read(within) {
        const isText = item => item.textFormat !== undefined && item.text !== "";
        const isSymbol = item => item.weight !== undefined && item.size !== undefined;
        return seen(within, item => isText(item) || isSymbol(item)).filter(item => isEnabled(item) && isInSight(item));
    }

    /// The colour of the pixel just left of the item, on its background.
    function groundOf(item, picture) {
        const text = item.textFormat !== undefined;
        const room = text && item.horizontalAlignment === Text.AlignHCenter ? (item.width - item.contentWidth) / 2 : 0;
        const place = item.mapToItem(shown, room - 2, item.height / 2);
        return picture.pixel(Math.round(place.x), Math.round(place.y));
    }

    function leastOf(item) {
        const isLarge = item.font && (item.font.pixelSize || item.font.pointSize * 96 / 72) >= (item.font.bold ? 18.66 : 24);
        return item.textFormat === undefined || isLarge ? 3 : 4.5;
    }

    function states() {
        return {
            landing: () => shown,
            scanning: () => (demo.scanAt(0.42, "Checking"), shown),
            results: () => (demo.showResults(), shown),
            explaining: () => (demo.showResults(), demo.setExplaining(true), shown),
            report: () => (demo.setSection("report"), demo.setReport(5e9, 12, 1, 0.6), shown),
            settings: () => (demo.setSection("settings"), shown),
            wizard: () => {
                demo.shown.app.showSetupWizard = true;
                tryVerify(() => item("setupSheet").opened);
                return item("setupSheet").contentItem;
            },
            sent: () => {
                item("sentSheet").open();
                tryVerify(() => item("sentSheet").opened);
                return item("sentSheet").contentItem;
            },
            items: () => {
                demo.showResults();
                tryVerify(() => findChild(shown, "row0"));
                item("row0").inspected();
                tryVerify(() => item("itemsSheet").opened);
                return item("itemsSheet").contentItem;
            }
        };
    }

    function test_whatever_is_read_stands_out_data() {
        const rows = [];
        for (const state in states()) {
            for (const theme of ["dark", "light"])
                rows.push({ tag: state + ", " + theme, state: state, theme: theme });
        }
        return rows;
    }

    function test_whatever_is_read_stands_out(data) {
        TidloTheme.isHighContrast = true;
        Motion.isReduced = true;
        awaitScreens();
        wear(data.theme);
        const within = states()[data.state]();
        laidOut();
        const picture = grabImage(shown), items = read(within);
        verify(items.length > 4);
        const faint = [];
        for (const item of items) {
            const ground = groundOf(item, picture), actual = contrast(item.color, opacityOf(item), ground);
            if (actual < leastOf(item) - 0.05)
                faint.push(nameOf(item) + " " + item.color + " on " + ground + ": " + actual.toFixed(2));
        }
        compare(faint, []);
    }

    function test_a_selected_text_stands_out() {
        TidloTheme.isHighContrast = true;
        const search = findChild(states().items(), "itemsSearch");
        for (const theme of ["dark", "light"]) {
            wear(theme);
            for (const field of [item("explanation"), search]) {
                compare(field.selectionColor.a, 1);
                verify(contrast(field.selectedTextColor, 1, field.selectionColor) > 4.49, nameOf(field));
            }
        }
    }

    function test_borders_are_opaque() {
        for (const theme of ["dark", "light"]) {
            TidloTheme.isHighContrast = false;
            wear(theme);
            fuzzyCompare(TidloTheme.solid(TidloTheme.red, 0.35).a, 0.35, 0.001);
            TidloTheme.isHighContrast = true;
            compare(TidloTheme.solid(TidloTheme.red, 0.35).a, 1);
            compare([TidloTheme.controlBorder.a, TidloTheme.divider.a], [1, 1]);
            demo.setSection("settings");
            laidOut();
            compare(item("uninstall").background.borderColor.a, 1);
        }
    }
}
