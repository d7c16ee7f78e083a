#include "cli/CliRun.h"
#include "cli/Output.h"
#include "support/InChild.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(CommandLine, HelpGoesToStandardOutput)
{
    const TemporaryHome home;
    for (const QByteArrayList &arguments : {QByteArrayList{"--help"}, QByteArrayList{"-h"}}) {
        const CliRun run = runCli(home, arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
        EXPECT_THAT(run.output.toStdString(), StartsWith("Usage: tidlo-cli <command> [options]\n"));
        EXPECT_THAT(run.output.toStdString(), HasSubstr("\n  scan "));
        EXPECT_THAT(run.output.toStdString(), HasSubstr("\n  clean "));
    }
}

TEST(CommandLine, EachCommandHasItsOwnHelpThatFitsInto80Columns)
{
    const TemporaryHome home;
    for (const QByteArray command : {"scan", "clean", "restore", "explain"}) {
        const CliRun run = runCli(home, {command, "--help"});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
        EXPECT_THAT(run.output.toStdString(), StartsWith("Usage: tidlo-cli " + command.toStdString()));
        EXPECT_THAT(run.output.toStdString(), HasSubstr("\n  -h, --help "));
        for (const QByteArray &line : run.output.split('\n'))
            EXPECT_LE(line.size(), 80) << line.constData();
    }
}

TEST(CommandLine, TheHelpTellsAllThatIsSentForAnExplanation)
{
    const TemporaryHome home;
    const std::string help = runCli(home, {"explain", "--help"}).output.simplified().toStdString();

    EXPECT_THAT(help, HasSubstr("This is what it sends: titles, categories, risks, sizes, the scan's own explanations, "
                                "up to eight paths of each, and an identifier of this machine."));
}

TEST(CommandLine, TheVersionIsThatOfTheProject)
{
    const TemporaryHome home;
    for (const QByteArrayList &arguments : {QByteArrayList{"--version"}, QByteArrayList{"scan", "--version"}}) {
        const CliRun run = runCli(home, arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.output, "tidlo-cli " TIDLO_VERSION "\n");
        EXPECT_EQ(run.errors, "");
    }
}

struct Misuse
{
    QByteArrayList arguments;
    const char *complaint;
    const char *usage;
};

TEST(CommandLine, WhatIsWrongIsSaidOnStandardErrorWithAUsageLine)
{
    const char *const program = "Usage: tidlo-cli <command> [options]\n";
    const char *const scan = "Usage: tidlo-cli scan [--paths] [--json] [--except <path>] [--also <folder>]\n";
    const char *const clean = "Usage: tidlo-cli clean [--yes] [--dry-run] [--risk <risk>] [--paths] [--json]\n"
                              "       [--except <path>] [--also <folder>]\n";
    const char *const restore = "Usage: tidlo-cli restore [--since <time>] [--all] [--yes] [--dry-run] [--json]\n"
                                "       [path...]\n";
    const std::array misuses{
        Misuse{{}, "No command was given.", program},
        Misuse{{"sweep"}, "Unknown command 'sweep'.", program},
        Misuse{{""}, "Unknown command ''.", program},
        Misuse{{"sw\x1b[31meep"}, "Unknown command 'sw\\x1b[31meep'.", program},
        Misuse{{"--sweep"}, "Unknown option 'sweep'.", program},
        Misuse{{"scan", "--all"}, "Unknown option 'all'.", scan},
        Misuse{{"scan", "-x"}, "Unknown option 'x'.", scan},
        Misuse{{"scan", "here"}, "Unexpected argument 'here'.", scan},
        Misuse{{"scan", "--", "--json"}, "Unexpected argument '--json'.", scan},
        Misuse{{"scan", "--json=yes"}, "Unexpected value after '--json'.", scan},
        Misuse{{"scan", "--yes"}, "Unknown option 'yes'.", scan},
        Misuse{{"restore", "--all"}, "--all needs --since, and takes no paths.", restore},
        Misuse{{"restore", "--all", "--since", "1h", "x"}, "--all needs --since, and takes no paths.", restore},
        Misuse{{"restore", "--yes"}, "Name what to put back, or add --since and --all.", restore},
        Misuse{{"restore", "--dry-run", "--since", "1h"}, "Name what to put back, or add --since and --all.", restore},
        Misuse{{"restore", "--since", "1w"},
               "A time is a number of minutes (10min), hours (2h) or days (3d) ago, today, or a date.",
               restore},
        Misuse{{"clean", "--all"}, "Unknown option 'all'.", clean},
        Misuse{{"clean", "here"}, "Unexpected argument 'here'.", clean},
        Misuse{{"clean", "--risk"}, "Missing value after '--risk'.", clean},
        Misuse{{"clean", "--yes", "--risk", "never"}, "A risk is safe, rebuildable or review.", clean},
        Misuse{{"clean", "--yes", "--risk", "Safe"}, "A risk is safe, rebuildable or review.", clean},
        Misuse{{"clean", "--yes", "--risk="}, "A risk is safe, rebuildable or review.", clean},
    };
    const TemporaryHome home;
    for (const Misuse &misuse : misuses) {
        const CliRun run = runCli(home, misuse.arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, QByteArray("tidlo-cli: ") + misuse.complaint + '\n' + misuse.usage);
    }
}

TEST(CommandLine, OutputThatCannotBeWrittenIsAFailure)
{
    const TemporaryHome home;
    const CliSetup fullDisk = redirected(STDOUT_FILENO, "/dev/full");
    const CliSetup closed{.environment = {}, .inChild = [] { close(STDOUT_FILENO); }};
    for (const CliSetup &setup : {fullDisk, closed}) {
        for (const QByteArrayList &arguments : {QByteArrayList{"scan"}, QByteArrayList{"scan", "--json"},
                                                QByteArrayList{"--version"}, QByteArrayList{"scan", "--help"}}) {
            const CliRun run = runCli(home, arguments, setup);
            EXPECT_EQ(run.status, 1);
            EXPECT_THAT(run.errors.toStdString(), StartsWith("tidlo-cli: The output could not be written: "));
        }
    }
}

TEST(CommandLine, AReaderThatHasGoneEndsTheProgram)
{
    const TemporaryHome home;
    const CliSetup nobodyReads{.environment = {}, .inChild = [] {
                                   std::array<int, 2> ends{};
                                   if (pipe(ends.data()) != 0)
                                       _exit(99);
                                   close(ends[0]);
                                   dup2(ends[1], STDOUT_FILENO);
                                   signal(SIGPIPE, SIG_DFL);
                               }};
    const CliRun run = runCli(home, {"scan"}, nobodyReads);
    EXPECT_EQ(run.signal, SIGPIPE);
}

TEST(CommandLine, StandardStreamsThatAreClosedAreNoTrouble)
{
    const TemporaryHome home;
    const CliSetup closed{.environment = {}, .inChild = [] {
                              close(STDIN_FILENO);
                              close(STDERR_FILENO);
                          }};
    const CliRun run = runCli(home, {"scan"}, closed);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), StartsWith("Nothing to clean up"));
}

TEST(CommandLine, NoFileTakesThePlaceOfAStandardStream)
{
    const auto opensBeyondThem = [] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            close(stream);
        holdStandardStreams();
        return open("/dev/null", O_RDWR) > STDERR_FILENO && writeAll(STDOUT_FILENO, "x") == EBADF;
    };
    EXPECT_TRUE(inChild(opensBeyondThem).succeeded);
}

TEST(CommandLine, ALocaleWithoutUtf8ChangesNothing)
{
    const TemporaryHome home;
    for (const QByteArray locale : {"C", "POSIX", "nowhere.ISO-8859-1"}) {
        const CliRun run = runCli(home, {"scan"}, {.environment = {"LC_ALL=" + locale}, .inChild = {}});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
    }
}

TEST(CommandLine, IgnoresAHomeThatIsNoAbsolutePathAndSaysSo)
{
    const TemporaryHome home;
    const auto told = [&](const QByteArray &variable) {
        return runCli(home, {"--version"}, {.environment = {variable}, .inChild = {}}).errors;
    };
    EXPECT_EQ(told("HOME=here"), "tidlo-cli: $HOME is not an absolute path and is ignored: here\n");
    EXPECT_EQ(told("HOME=./a\x1b"), "tidlo-cli: $HOME is not an absolute path and is ignored: ./a\\x1b\n");
    for (const QByteArray &fine : {"HOME=" + home.path(), "HOME=" + home.path() + '/', QByteArray("HOME=/"),
                                   QByteArray("HOME="), QByteArray("HOME")})
        EXPECT_EQ(told(fine), "") << fine.constData();
}

TEST(CommandLine, MovesNoOtherBundleThanTheOneItRunsFrom)
{
    const TemporaryHome home;
    home.file("Tidlo.app/Contents/MacOS/tidlo-cli");
    const auto before = home.inventory();
    for (const QByteArrayList &arguments : {QByteArrayList{"trash-bundle"},
                                            {"trash-bundle", "--at", home / "Tidlo.app"},
                                            {"trash-bundle", "--at", ""},
                                            {"trash-bundle", "--at", TIDLO_CLI}}) {
        const CliRun run = runCli(home, arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.errors.toStdString(),
                    StartsWith("tidlo-cli: That is not the bundle that this program runs from.\n"));
    }
    EXPECT_EQ(home.inventory(), before);
    EXPECT_THAT(runCli(home, {"--help"}).output.toStdString(), Not(HasSubstr("trash-bundle")));
}

} // namespace tidlo
