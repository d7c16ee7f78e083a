import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "SetupWizardView"
    view: Component {
        SetupWizardView {
            app: demo.shown.app
            preferences: demo.shown.preferences
        }
    }

    readonly property string title: "Clean with context, not guesses"

    function paragraph() {
        return texts(shown)[4];
    }

    function logos() {
        return seen(shown, part => String(part).includes("TidloLogo"));
    }

    function rule() {
        return seen(shown, part => part.height === 1 && part.width === 640)[0];
    }

    function test_says_everything_in_this_order() {
        const texts = demo.texts(shown);
        compare(texts.slice(0, 4), ["Tidlo setup", "Safe storage cleanup for Mac", "Ready to use",
            "Clean with context, not guesses"]);
        compare(texts[4], paragraph().text);
        compare(texts.slice(5), ["Metadata scan", "Protected items", "Get Started"]);
        compare(demo.symbols(shown), ["doc.text.magnifyingglass", "shield.checkered"]);
    }

    function test_is_as_large_as_its_sheet_and_fits_into_it() {
        compare(shown.implicitWidth, 640);
        compare(shown.implicitHeight, 500);
        verify(text("Clean with context, not guesses").width <= 470);
    }

    function test_get_started_remembers_and_closes() {
        demo.shown.app.showSetupWizard = true;
        const seen = [];
        const stored = () => seen.push("stored " + demo.shown.preferences.setupCompleted);
        const closed = () => seen.push("shown " + demo.shown.app.showSetupWizard);
        demo.shown.preferences.setupCompletedChanged.connect(stored);
        demo.shown.app.showSetupWizardChanged.connect(closed);
        mouseClick(item("getStarted"));
        demo.shown.preferences.setupCompletedChanged.disconnect(stored);
        demo.shown.app.showSetupWizardChanged.disconnect(closed);
        compare(seen, ["stored true", "shown false"]);
        demo.shown.app.skipMoveToApplicationsPrompt();
        verify(!demo.shown.app.showSetupWizard, "a declined offer shows it no more");
    }

    function test_the_bar_at_the_top_is_padded_and_ends_with_a_line() {
        const [logo, heading, note, pill] = [logos()[0], text("Tidlo setup"), text("Safe storage cleanup for Mac"),
            text("Ready to use").parent];
        const bar = place(logo.parent);
        compare([bar.left, bar.top, bar.right], [22, 22, 640 - 22]);
        compare([place(logo).left, place(pill).right], [22, 640 - 22]);
        compare([place(rule()).left, place(rule()).top - bar.bottom, rule().height], [0, 22, 1]);
        verify(place(logo).right < place(heading).left && place(heading).bottom <= place(note).top);
        compareFonts([[heading, TidloType.system(18, Font.Bold)], [note, TidloType.small]]);
        compareColors([
            [heading, "color", "primaryText"], [note, "color", "mutedText"], [rule(), "color", "controlBorder"]
        ]);
        comparePill("Ready to use", "green");
    }

    function test_the_body_is_a_narrow_column_in_the_middle() {
        const column = text(title).parent;
        compare(column.width, 470);
        compare(place(column).left, (640 - 470) / 2);
        fuzzyCompare(place(column).top - place(rule()).bottom, 500 - place(column).bottom, 1);
        for (const part of Array.from(column.children))
            fuzzyCompare(place(part).left + part.width / 2, 320, 1, nameOf(part) + " is in the middle");
        compare(paragraph().horizontalAlignment, Text.AlignHCenter);
        verify(logos()[1].width > logos()[0].width);
    }

    function test_the_title_is_on_one_line_and_not_shrunk_to_fit() {
        const heading = text(title);
        compareFonts([[heading, TidloType.system(30, Font.Bold)]]);
        compareColors([[heading, "color", "primaryText"]]);
        compare([heading.lineCount, heading.fontInfo.pixelSize], [1, 30]);
    }

    function test_a_short_paragraph_says_what_is_read_and_what_is_protected() {
        const words = paragraph();
        compareFonts([[words, TidloType.body]]);
        compareColors([[words, "color", "mutedText"]]);
        compare(lineSpacing(words), 4);
        compare(words.text.split(/[.!?](?:\s|$)/).filter(sentence => sentence !== "").length, 2);
        verify(words.text.includes("scans local metadata"));
        verify(/databases are protected/.test(words.text));
    }

    function test_its_one_button_is_the_filled_one() {
        const button = item("getStarted");
        compare(button.leftPadding, 28);
        compareFonts([[button.contentItem, TidloType.system(13, Font.Bold)]]);
        compareColors([[button.contentItem, "color", "black"], [button.background, "color", "green"]]);
    }
}
