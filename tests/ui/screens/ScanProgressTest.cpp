#include "ui/screens/ScanProgress.h"

#include "ui/UiTest.h"

#include <cmath>

namespace tidlo {

namespace {

using testing::ElementsAre;

enum class State { pending, active, complete };

QList<State> statesAt(double progress)
{
    QList<State> states;
    for (const PipelineStep &step : ScanProgress::stepsAt(progress)) {
        EXPECT_TRUE(step.active || !step.complete);
        states.append(step.complete ? State::complete : step.active ? State::active : State::pending);
    }
    return states;
}

double justBelow(double progress)
{
    return std::nextafter(progress, 0);
}

class ScanProgressTest : public UiTest
{
protected:
    ScanProgress progress{app()};
};

constexpr State pending = State::pending;
constexpr State active = State::active;
constexpr State complete = State::complete;

} // namespace

TEST(ScanSteps, ShowHowTheyStandByASymbolAndAWord)
{
    const QList<PipelineStep> steps = ScanProgress::stepsAt(0.42);
    EXPECT_EQ(steps[0].symbol(), QStringLiteral("checkmark"));
    EXPECT_EQ(steps[0].state(), QStringLiteral("done"));
    EXPECT_EQ(steps[1].symbol(), QStringLiteral("arrow.triangle.2.circlepath"));
    EXPECT_EQ(steps[1].state(), QStringLiteral("under way"));
    EXPECT_EQ(steps[2].symbol(), QStringLiteral("circle"));
    EXPECT_EQ(steps[2].state(), QStringLiteral("waiting"));
}

TEST(ScanSteps, AreAllPendingUntilTheFirstBegins)
{
    EXPECT_THAT(statesAt(0), ElementsAre(pending, pending, pending, pending));
    EXPECT_THAT(statesAt(justBelow(0.18)), ElementsAre(pending, pending, pending, pending));
}

TEST(ScanSteps, TheFirstIsActiveFromEighteenHundredths)
{
    EXPECT_THAT(statesAt(0.18), ElementsAre(active, pending, pending, pending));
    EXPECT_THAT(statesAt(justBelow(0.42)), ElementsAre(active, pending, pending, pending));
}

TEST(ScanSteps, TheSecondIsActiveAsSoonAsTheFirstIsComplete)
{
    EXPECT_THAT(statesAt(0.42), ElementsAre(complete, active, pending, pending));
    EXPECT_THAT(statesAt(justBelow(0.56)), ElementsAre(complete, active, pending, pending));
}

TEST(ScanSteps, TheThirdIsActiveAsSoonAsTheSecondIsComplete)
{
    EXPECT_THAT(statesAt(0.56), ElementsAre(complete, complete, active, pending));
    EXPECT_THAT(statesAt(justBelow(0.86)), ElementsAre(complete, complete, active, pending));
}

TEST(ScanSteps, TheLastIsActiveAsSoonAsTheThirdIsComplete)
{
    EXPECT_THAT(statesAt(0.86), ElementsAre(complete, complete, complete, active));
    EXPECT_THAT(statesAt(0.99), ElementsAre(complete, complete, complete, active));
    EXPECT_THAT(statesAt(justBelow(1)), ElementsAre(complete, complete, complete, active));
}

TEST(ScanSteps, TheLastIsCompleteAtTheVeryEnd)
{
    EXPECT_THAT(statesAt(1), ElementsAre(complete, complete, complete, complete));
}

TEST_F(ScanProgressTest, WritesTheProgressAsAPercentage)
{
    EXPECT_EQ(progress.percentText(), QStringLiteral("0%"));
    app().setScanProgress(0.456);
    EXPECT_EQ(progress.percentText(), QStringLiteral("46%"));
    app().setScanProgress(1);
    EXPECT_EQ(progress.percentText(), QStringLiteral("100%"));
}

TEST_F(ScanProgressTest, TellsOfStepsOnlyWhenOneChanges)
{
    const auto goTo = [this](double fraction) { return [this, fraction] { app().setScanProgress(fraction); }; };
    EXPECT_EQ(times(progress, &ScanProgress::stepsChanged, goTo(0.1)), 0);
    EXPECT_EQ(times(progress, &ScanProgress::progressChanged, goTo(0.17)), 1);
    EXPECT_EQ(times(progress, &ScanProgress::stepsChanged, goTo(0.18)), 1);
    EXPECT_EQ(times(progress, &ScanProgress::stepsChanged, goTo(0.3)), 0);
    EXPECT_EQ(progress.steps(), ScanProgress::stepsAt(0.3));
}

} // namespace tidlo
