#include "cli/HomeToClean.h"
#include "cli/TerminalSession.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

/// A home folder whose scan takes some time.
static std::unique_ptr<TemporaryHome> largeHome()
{
    auto home = std::make_unique<TemporaryHome>(TemporaryHome::parentInMemory());
    for (int i = 0; i < 200; ++i) {
        const FilePath outer = home->folder("Sites/" + QByteArray::number(i));
        for (int j = 0; j < 300; ++j)
            mkdir((outer + '/' + QByteArray::number(j)).constData(), 0755);
    }
    return home;
}

/// A home folder with \a count small items to move.
static std::unique_ptr<TemporaryHome> homeWithItems(int count)
{
    using namespace std::chrono_literals;
    auto home = std::make_unique<TemporaryHome>();
    home->file("Downloads/0.zip");
    for (int i = 1; i < count; ++i)
        home->file("Downloads/" + QByteArray::number(i) + ".zip", 0);
    for (int i = 0; i < count; ++i)
        home->setModified("Downloads/" + QByteArray::number(i) + ".zip", std::chrono::system_clock::now() - 46 * 24h);
    return home;
}

struct Signal
{
    int number;
    const char *name;
};

constexpr Signal endings[]{{SIGINT, "SIGINT"}, {SIGTERM, "SIGTERM"}, {SIGHUP, "SIGHUP"}};

/// Repeats until a run was interrupted: on a busy machine, a run may end before the signal reaches it.
static CliRun interrupted(const std::function<CliRun()> &run)
{
    CliRun met = run();
    for (int more = 9; more > 0 && met.status == 0; --more)
        met = run();
    return met;
}

static void interrupt(TerminalSession &session, int signal)
{
    if (signal == SIGINT)
        session.type("\x03");
    else
        session.send(signal);
}

TEST(Interruption, EndsAScanByItsSignalAndLeavesNoProgressBehind)
{
    const auto home = largeHome();
    for (const Signal &signal : endings) {
        const CliRun run = interrupted([&] {
            TerminalSession session(*home, {"scan"}, 80);
            EXPECT_TRUE(session.shows("Finding project build & cache files"));
            interrupt(session, signal.number);
            return session.end();
        });
        EXPECT_EQ(run.signal, signal.number) << signal.name;
        EXPECT_THAT(screenOf(run.output), AnyOf("", "^C")) << signal.name; // Terminals echo the key.
    }
}

TEST(Interruption, WhatTheCallerIgnoresStaysIgnored)
{
    const auto home = largeHome();
    const CliSetup ignoring{.environment = {}, .inChild = [] { signal(SIGHUP, SIG_IGN); }};
    TerminalSession session(*home, {"scan"}, 80, ignoring);
    ASSERT_TRUE(session.shows("Finding project build & cache files"));
    session.send(SIGHUP);
    const CliRun run = session.end();
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), HasSubstr("Nothing to clean up"));
}

TEST(Interruption, AtTheQuestionMovesNothing)
{
    const auto home = homeToClean();
    const auto before = home->inventory();
    TerminalSession session(*home, {"clean"}, 80);
    ASSERT_TRUE(session.shows("[y/N] "));
    session.type("\x03");
    EXPECT_EQ(session.end().signal, SIGINT);
    EXPECT_EQ(home->inventory(), before);
}

TEST(Interruption, StopsACleanupBetweenTwoItemsAndTheReportTellsWhatWasDone)
{
    constexpr int count = 2'000;
    for (const Signal &signal : endings) {
        std::unique_ptr<TemporaryHome> home;
        const CliRun run = interrupted([&] {
            home = homeWithItems(count);
            TerminalSession session(*home, {"clean"}, 80);
            EXPECT_TRUE(session.shows("[y/N] "));
            session.type("y\n");
            EXPECT_TRUE(session.shows("Moving 2000 items"));
            interrupt(session, signal.number);
            return session.end();
        });

        EXPECT_EQ(run.status, 128 + signal.number) << signal.name;
        const qsizetype moved = trashed(*home).size();
        const qsizetype left = QDir(QFile::decodeName(*home / "Downloads")).entryList(QDir::Files).size();
        EXPECT_EQ(moved + left, count);
        EXPECT_GT(left, 0) << "It went on to the end.";
        const std::string screen = screenOf(run.output).toStdString();
        EXPECT_THAT(screen, HasSubstr(moved == 0 ? "Interrupted. Nothing was moved to the Trash.\n"
                                                 : "Interrupted. Moved " + std::to_string(moved) + " of 2000 items ("));
        EXPECT_THAT(screen, Not(HasSubstr("Moving")));
        EXPECT_THAT(screen, Not(HasSubstr("could not be moved")));
    }
}

} // namespace tidlo
