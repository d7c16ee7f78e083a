import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "SetupWizardView"
    view: Component {
        SetupWizardView {
            app: demo.app
        }
    }

    function test_says_everything_in_this_order() {
        const texts = demo.texts(shown);
        compare(texts.slice(0, 4), ["Tidlo setup", "Safe storage cleanup for Mac", "Ready to use",
            "Clean with context, not guesses"]);
        compare(texts.slice(5), ["Metadata scan", "Protected items", "Get Started"]);
        compare(demo.symbols(shown), ["doc.text.magnifyingglass", "shield.checkered"]);
        compare(text("Clean with context, not guesses").font, TidloType.system(30, Font.Bold));
        compare(text("Tidlo setup").font, TidloType.system(18, Font.Bold));
    }

    function test_is_as_large_as_its_sheet_and_fits_into_it() {
        compare(shown.implicitWidth, 640);
        compare(shown.implicitHeight, 500);
        verify(text("Clean with context, not guesses").width <= 470);
    }

    function test_get_started_remembers_and_closes() {
        demo.app.showSetupWizard = true;
        mouseClick(item("getStarted"));
        verify(!demo.app.showSetupWizard);
        demo.app.skipMoveToApplicationsPrompt();
        verify(!demo.app.showSetupWizard, "a declined offer shows it no more");
    }
}
