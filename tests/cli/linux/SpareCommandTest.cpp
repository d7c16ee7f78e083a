#include "cli/CliRun.h"

#include <QFile>

#include <gtest/gtest.h>

#include <unistd.h>

namespace tidlo {

namespace {

constexpr char preferences[] = ".config/com.tidlo.storagecleaner.conf";

bool exists(const FilePath &path)
{
    return access(path.constData(), F_OK) == 0;
}

} // namespace

TEST(SpareCommand, ShowsThatNothingIsSparedAndStoresNothing)
{
    const TemporaryHome home;
    const CliRun run = runCli(home, {"spare"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Everything may be suggested.\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_FALSE(exists(home / preferences));
}

TEST(SpareCommand, KeepsPathsByTheirPlaceOnceEachAndMarksThoseThatNoLongerExist)
{
    TemporaryHome home;
    const FilePath folder = home.folder("Sites/a");
    const FilePath file = home.file("new\nline");
    home.link("link", "Sites");
    EXPECT_EQ(runCli(home, {"spare", home / "link/a/", file, folder}).status, 0);
    ASSERT_EQ(rmdir((home / "Sites/a").constData()), 0);
    const CliRun run = runCli(home, {"spare"});
    EXPECT_EQ(run.output, "Never suggested:\n  " + folder + " (no longer exists)\n  " + home.path() + "/new\\nline\n");
}

TEST(SpareCommand, TakesBackWhatIsNamedEvenIfItNoLongerExists)
{
    TemporaryHome home;
    home.link("link", home.folder("true"));
    runCli(home, {"spare", home.folder("true/a"), home.folder("b")});
    ASSERT_EQ(rmdir((home / "true/a").constData()), 0);
    const CliRun run = runCli(home, {"spare", "--remove", home / "link/a"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Never suggested:\n  " + (home / "b") + '\n');
    EXPECT_EQ(runCli(home, {"spare", "--remove", home / "b"}).output, "Everything may be suggested.\n");
}

TEST(SpareCommand, ChangesNothingIfAPathDoesNotExistOrIsNotInTheList)
{
    TemporaryHome home;
    const FilePath kept = home.folder("kept");
    CliRun run = runCli(home, {"spare", kept, home / "missing"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "tidlo-cli: '" + (home / "missing") + "' does not exist.\n");
    run = runCli(home, {"spare", "--remove", kept});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "tidlo-cli: '" + kept + "' is not in the list.\n");
    EXPECT_EQ(runCli(home, {"spare"}).output, "Everything may be suggested.\n");
}

TEST(SpareCommand, WhatIsSparedIsNeitherFoundNorMovedAndScanNamesIt)
{
    TemporaryHome home;
    const FilePath spared = home.file("Sites/a/node_modules/x");
    const FilePath moved = home.file("Sites/b/node_modules/x");
    runCli(home, {"spare", home / "Sites/a"});
    EXPECT_EQ(runCli(home, {"scan", "--json"}).errors, "Left out:\n  " + (home / "Sites/a/node_modules\n"));
    EXPECT_EQ(runCli(home, {"clean", "--yes"}).status, 0);
    EXPECT_TRUE(exists(home / "Sites/a/node_modules/x"));
    EXPECT_FALSE(exists(home / "Sites/b/node_modules"));
}

TEST(SpareCommand, AListThatCannotBeReadStopsWhatMovesAndIsTold)
{
    TemporaryHome home;
    home.file("Sites/a/node_modules/x");
    QFile file(QFile::decodeName(home.file(preferences, 0)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\ntidlo.spared=relative\n");
    file.close();
    const QByteArray complaint = "tidlo-cli: What is never to be suggested cannot be read from the preferences.\n";
    for (const QByteArrayList &arguments : {QByteArrayList{"clean", "--yes"}, {"spare"}, {"spare", home.path()}}) {
        const CliRun run = runCli(home, arguments);
        EXPECT_EQ(run.status, 1) << arguments.join(' ').constData();
        EXPECT_EQ(run.output, "") << arguments.join(' ').constData();
        EXPECT_EQ(run.errors, complaint) << arguments.join(' ').constData();
    }
    EXPECT_TRUE(exists(home / "Sites/a/node_modules/x"));
    const CliRun scan = runCli(home, {"scan"});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(scan.errors, complaint);
}

TEST(SpareCommand, PreferencesThatCannotBeWrittenAreTold)
{
    TemporaryHome home;
    const FilePath folder = home.folder("a");
    home.file(".config"); // A file in the place of a folder.
    const CliRun run = runCli(home, {"spare", folder});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "tidlo-cli: The preferences cannot be written.\n");
}

TEST(SpareCommand, TakesBackWhatIsGoneByAnyWayToItAndNothingForAnEmptyName)
{
    TemporaryHome home;
    const FilePath folder = home.folder("in/gone");
    const FilePath working = home.folder("here");
    runCli(home, {"spare", folder, working});
    ASSERT_EQ(rmdir(folder.constData()), 0);
    const CliSetup inWorking{.workingFolder = working, .environment = {}, .inChild = {}};
    EXPECT_EQ(runCli(home, {"spare", "--remove", ""}, inWorking).status, 2);
    EXPECT_EQ(runCli(home, {"spare", "--remove", "../in/./other/../gone/"}, inWorking).output,
              "Never suggested:\n  " + working + '\n');
}

} // namespace tidlo
