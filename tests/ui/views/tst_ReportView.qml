import QtQuick
import Tidlo.Design
import Tidlo.Screens

ViewCase {
    name: "ReportView"
    view: Component {
        ReportView {
            anchors.fill: parent
            app: demo.app
        }
    }

    function test_before_a_cleanup_it_shows_what_the_selection_would_come_to() {
        demo.showResults();
        text("48.57 GB");
        text("Disk now 63% full");
        text("37%");
        text("114");
    }

    function test_it_counts_paths_and_not_findings() {
        demo.showResults();
        for (let i = 0; i < 9; ++i)
            demo.changeCandidate(i, { selected: i === 3 || i === 6 });
        text("7");
    }

    function test_with_nothing_selected_it_shows_nothing_recovered() {
        demo.setFigures(0.5, 0);
        text("Zero KB");
        text("Disk now 50% full");
    }

    function test_after_a_cleanup_it_shows_what_that_did() {
        demo.showResults();
        demo.setReport(1300000000, 12, 2, 0.61);
        text("1.3 GB");
        text("Disk now 61% full");
        text("39%");
        text("12");
        text("2");
    }

    function test_the_two_categories_are_read_from_the_findings_as_they_are() {
        demo.showResults();
        demo.setReport(1, 1, 1, 0.5);
        text("22.52 GB");
        text("6.27 GB");
        demo.removeCandidates();
        compare(demo.texts(shown).filter(words => words === "Zero KB").length, 2);
    }

    function test_a_full_disk_still_shows_a_sliver_of_free_space() {
        demo.setReport(0, 0, 0, 1);
        text("Disk now 100% full");
        text("1%");
    }

    function test_says_everything_in_this_order() {
        demo.setReport(1300000000, 12, 2, 0.61);
        compare(demo.texts(shown), ["Cleanup report", "SPACE RECOVERED", "1.3 GB", "Disk now 61% full", "39%", "FREE",
            "PROJECT FILES", "Zero KB", "Source code kept intact", "WHATSAPP", "Zero KB", "Chat database protected",
            "FILES REMOVED", "12", "Moved to Trash", "PROTECTED ITEMS", "2", "Flagged never-touch",
            "Everything moved to Trash first. Nothing is permanently deleted until the Bin is emptied."]);
        compare(demo.symbols(shown), ["square.and.arrow.up", "square.and.arrow.down", "shield.checkered"]);
        compare(text("1.3 GB").font, TidloType.rounded(44, Font.Bold));
    }

    function test_the_figures_have_their_colours() {
        demo.setReport(1300000000, 12, 3, 0.61);
        compareColor(text("12").color, 0.89, 0.91, 0.918);
        compareColor(text("3").color, 1, 0.35, 0.39);
        compareColor(text("SPACE RECOVERED").color, 0.502, 0.741, 0.769, 0.8);
        compareColor(text("Disk now 61% full").color, 0.502, 0.741, 0.769, 0.85);
    }
}
