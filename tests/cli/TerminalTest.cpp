#include "cli/HomeToClean.h"
#include "cli/TerminalSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace tidlo {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

static CliRun scanAtTerminal(const TemporaryHome &home, int columns, const QByteArrayList &environment = {})
{
    return TerminalSession(home, {"scan", "--paths"}, columns, {.environment = environment, .inChild = {}}).end();
}

/// In characters, not bytes; all characters that the tests write are one column wide.
static qsizetype widestLine(const QByteArray &screen)
{
    qsizetype widest = 0;
    for (const QByteArray &line : screen.split('\n'))
        widest = std::max(widest, QString::fromUtf8(line).size());
    return widest;
}

TEST(Terminal, ProgressIsShownInOneLineAndGoneWhenDone)
{
    const auto home = homeToClean();
    const CliRun run = scanAtTerminal(*home, 120);
    EXPECT_EQ(run.status, 0);
    for (const char *step : {
             "  8%  Reading disk usage",
             " 18%  Finding project build & cache files",
             " 42%  Checking WhatsApp Desktop storage",
             " 56%  Checking user caches",
             " 72%  Checking old downloads & large untouched files",
             " 86%  Finding older project copies",
             "100%  Ready",
         })
        EXPECT_THAT(run.output.toStdString(), HasSubstr(std::string("\r\x1b[K") + step));
    const std::string screen = screenOf(run.output).toStdString();
    EXPECT_THAT(screen, StartsWith(" Size  Risk "));
    EXPECT_THAT(screen, Not(HasSubstr("%  ")));
}

TEST(Terminal, ProgressKeepsToOneLineOfANarrowOne)
{
    const TemporaryHome home;
    const QByteArray written = scanAtTerminal(home, 30).output;
    EXPECT_THAT(written.toStdString(), HasSubstr(" 18%  Finding project build &\r"));
    for (const QByteArray &line : written.left(written.lastIndexOf("\r\x1b[K")).split('\r'))
        EXPECT_LT(line.size(), 30 + qstrlen("\x1b[K")) << line.constData();
}

TEST(Terminal, WideEnoughItShowsTheVeryTableThatAFileGets)
{
    const auto home = homeToClean();
    const QByteArray inFile = runCli(*home, {"scan", "--paths"}).output;
    const auto findings = [](const QByteArray &text) { return text.left(text.indexOf("\nDisk used")).toStdString(); };
    EXPECT_EQ(findings(screenOf(scanAtTerminal(*home, 200).output)), findings(inFile));
}

TEST(Terminal, ANarrowOneGetsSomeLinesForEachFinding)
{
    const TemporaryHome parent("/tmp");
    const auto home = homeToClean();
    const std::string screen = screenOf(TerminalSession(*home, {"scan"}, 80).end().output).toStdString();
    EXPECT_THAT(screen, StartsWith("41 KB  Rebuildable project folders\n"
                                   "       Rebuildable · Project files · 2 paths · selected\n"
                                   "20 KB  WhatsApp / Chat Media & Attachments\n"
                                   "       Review first · WhatsApp · 1 path · not selected\n"));
}

TEST(Terminal, NoLineIsWiderThanTheTerminal)
{
    const auto home = homeToClean();
    for (const int columns : {40, 60, 80, 95, 96, 120}) {
        const QByteArray screen = screenOf(TerminalSession(*home, {"scan"}, columns).end().output);
        EXPECT_LE(widestLine(screen), columns) << screen.constData();
        EXPECT_THAT(screen.toStdString(), HasSubstr("WhatsApp / Chat Media"));
        const QByteArray withPaths = screenOf(scanAtTerminal(*home, columns).output);
        EXPECT_THAT(withPaths.toStdString(), HasSubstr("  " + (*home / "Sites/one/node_modules\n").toStdString()));
    }
}

TEST(Terminal, OneThatDoesNotTellItsWidthIsTakenToHave80Columns)
{
    const auto home = homeToClean();
    const auto findingsAt = [&home](int columns) {
        const QByteArray screen = screenOf(TerminalSession(*home, {"scan"}, columns).end().output);
        return screen.left(screen.indexOf("\nFound ")); // The free space changes all the time.
    };
    EXPECT_EQ(findingsAt(0), findingsAt(80));
}

TEST(Terminal, ColoursAreForTerminalsWhoseUserHasNotRefusedThem)
{
    const auto home = homeToClean();
    EXPECT_THAT(scanAtTerminal(*home, 120).output.toStdString(), HasSubstr("\x1b[32mSafe to delete\x1b[0m"));
    EXPECT_THAT(scanAtTerminal(*home, 120, {"NO_COLOR="}).output.toStdString(), HasSubstr("\x1b[32m"));
    const std::string refused = scanAtTerminal(*home, 120, {"NO_COLOR=1"}).output.toStdString();
    EXPECT_THAT(refused, Not(HasSubstr("m\x1b[")));
    EXPECT_THAT(refused, Not(testing::ContainsRegex("\x1b\\[[0-9;]*m")));
    EXPECT_THAT(refused, HasSubstr(" 18%  Finding project")) << "Progress is no colour.";
    EXPECT_THAT(runCli(*home, {"scan"}).output.toStdString(), Not(HasSubstr("\x1b")));
}

TEST(Terminal, OneThatUnderstandsNoEscapesGetsNone)
{
    const auto home = homeToClean();
    for (const char *kind : {"TERM=dumb", "TERM=", "TERM"})
        EXPECT_THAT(scanAtTerminal(*home, 120, {kind}).output.toStdString(), Not(HasSubstr("\x1b"))) << kind;
}

TEST(Terminal, OutputThatGoesToAFileHasNoColoursWhileProgressIsShown)
{
    const auto home = homeToClean();
    const FilePath file = *home / "output";
    const CliRun run = TerminalSession(*home, {"scan"}, 40, redirected(STDOUT_FILENO, file)).end();
    EXPECT_THAT(run.output.toStdString(), HasSubstr(" 18%  Finding project"));
    EXPECT_EQ(screenOf(run.output), "");
    const QByteArray text = contentOf(file);
    EXPECT_THAT(text.toStdString(), StartsWith(" Size  Risk "));
    EXPECT_FALSE(text.contains('\x1b'));
}

TEST(Terminal, ErrorsThatGoToAFileHaveNoProgress)
{
    const auto home = homeToClean();
    const CliRun run = TerminalSession(*home, {"scan"}, 120, redirected(STDERR_FILENO, "/dev/null")).end();
    EXPECT_THAT(run.output.toStdString(), Not(HasSubstr("Finding project")));
}

} // namespace tidlo
