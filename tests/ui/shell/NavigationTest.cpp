#include "ui/shell/Navigation.h"

#include "ui/UiTest.h"

#include <array>

namespace tidlo {

namespace {

/// Places in the rail.
constexpr int scanItem = 0;
constexpr int resultsItem = 1;
constexpr int reportItem = 2;
constexpr int settingsItem = 3;

constexpr std::array allPhases{ScanPhase::ready, ScanPhase::scanning, ScanPhase::results, ScanPhase::report};

class NavigationTest : public UiTest
{
protected:
    /// The phase after the button is pressed in the phase \a before.
    ScanPhase phaseAfter(int item, ScanPhase before)
    {
        app().setPhase(before);
        navigation.press(item);
        return app().phase();
    }

    Navigation navigation{app()};
};

} // namespace

TEST_F(NavigationTest, EachButtonLeadsToItsSectionAndIsActiveThere)
{
    constexpr std::array sections{AppSection::scan, AppSection::results, AppSection::report, AppSection::settings};
    for (const int item : {settingsItem, reportItem, resultsItem, scanItem}) {
        EXPECT_NE(navigation.activeItem(), item);
        navigation.press(item);
        EXPECT_EQ(app().section(), sections.at(item));
        EXPECT_EQ(navigation.activeItem(), item);
    }
}

TEST_F(NavigationTest, EachSectionHasItsScreen)
{
    using Screen = Navigation::Screen;
    const auto screenOf = [this](AppSection section) {
        app().setSection(section);
        return navigation.screen();
    };
    EXPECT_EQ(screenOf(AppSection::scan), Screen::Landing);
    EXPECT_EQ(screenOf(AppSection::results), Screen::Results);
    EXPECT_EQ(screenOf(AppSection::report), Screen::Report);
    EXPECT_EQ(screenOf(AppSection::settings), Screen::Settings);
}

TEST_F(NavigationTest, TheScanSectionShowsTheProgressOnlyWhileAScanRuns)
{
    for (const ScanPhase phase : allPhases) {
        app().setPhase(phase);
        EXPECT_EQ(navigation.screen(),
                  phase == ScanPhase::scanning ? Navigation::Screen::Scanning : Navigation::Screen::Landing);
    }
}

TEST_F(NavigationTest, OtherSectionsShowTheirScreenWhileAScanRuns)
{
    app().setPhase(ScanPhase::scanning);
    app().setSection(AppSection::results);
    EXPECT_EQ(navigation.screen(), Navigation::Screen::Results);
}

TEST_F(NavigationTest, ResultsMoveThePhaseOnFromReadyAndFromNoOther)
{
    EXPECT_EQ(phaseAfter(resultsItem, ScanPhase::ready), ScanPhase::results);
    EXPECT_EQ(phaseAfter(resultsItem, ScanPhase::scanning), ScanPhase::scanning);
    EXPECT_EQ(phaseAfter(resultsItem, ScanPhase::results), ScanPhase::results);
    EXPECT_EQ(phaseAfter(resultsItem, ScanPhase::report), ScanPhase::report);
}

TEST_F(NavigationTest, TheReportMovesNoPhaseWhileThereIsNone)
{
    for (const ScanPhase phase : allPhases) {
        EXPECT_EQ(phaseAfter(reportItem, phase), phase);
        EXPECT_EQ(app().section(), AppSection::report);
    }
}

TEST_F(NavigationTest, TheReportMovesEveryPhaseOnceThereIsOne)
{
    app().setCleanupReport(CleanupReport{});
    for (const ScanPhase phase : allPhases)
        EXPECT_EQ(phaseAfter(reportItem, phase), ScanPhase::report);
}

TEST_F(NavigationTest, ScanAndSettingsMoveNoPhase)
{
    app().setCleanupReport(CleanupReport{});
    for (const ScanPhase phase : allPhases) {
        EXPECT_EQ(phaseAfter(scanItem, phase), phase);
        EXPECT_EQ(phaseAfter(settingsItem, phase), phase);
    }
}

TEST_F(NavigationTest, TheSectionIsChangedBeforeThePhase)
{
    QStringList order;
    QObject::connect(&app(), &AppViewModel::sectionChanged, [&] { order.append(QStringLiteral("section")); });
    QObject::connect(&app(), &AppViewModel::phaseChanged, [&] { order.append(QStringLiteral("phase")); });
    navigation.press(resultsItem);
    EXPECT_THAT(order, testing::ElementsAre(QStringLiteral("section"), QStringLiteral("phase")));
}

TEST_F(NavigationTest, TellsOfSectionsAndPhases)
{
    EXPECT_EQ(times(navigation, &Navigation::changed, [this] { app().setSection(AppSection::settings); }), 1);
    EXPECT_EQ(times(navigation, &Navigation::changed, [this] { app().setPhase(ScanPhase::scanning); }), 1);
}

TEST_F(NavigationTest, ButtonsThatAreNotThereDoNothing)
{
    for (const int item : {-1, 4, 1000})
        EXPECT_EQ(times(app(), &AppViewModel::objectWillChange, [&] { navigation.press(item); }), 0);
}

} // namespace tidlo
