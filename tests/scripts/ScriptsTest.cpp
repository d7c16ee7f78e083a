#include "platform/Descriptor.h"
#include "support/OpenPty.h"
#include "support/Patience.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <unistd.h>

namespace tidlo {

using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct ScriptRun
{
    int status;
    QByteArray output;
    QByteArray errors;
};

/// A system with only the programs that a test puts there.
class SmallSystem
{
public:
    SmallSystem()
    {
        for (const char *tool : {"bash", "dirname", "env", "grep", "realpath", "sed"}) {
            const QString path = QStandardPaths::findExecutable(QString::fromLatin1(tool));
            home.link(FilePath("bin/") + tool, QFile::encodeName(path));
        }
    }

    /// Adds a program that runs the given shell lines.
    void add(const FilePath &name, const QByteArray &lines) const
    {
        QFile program(QFile::decodeName(home.file("bin/" + name, 0)));
        ASSERT_TRUE(program.open(QFile::WriteOnly));
        program.write("#!" + home.path() + "/bin/bash\n" + lines + '\n');
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    void remove(const FilePath &name) const { QFile::remove(QFile::decodeName(home / ("bin/" + name))); }

    /// Debian's tools, which know that the packages \a installed are installed, and log how they are called. All others
    /// are two downloads of 5.5 MB together, once the shell line \a knowsOthers is true.
    void addPackageManager(const QByteArrayList &installed, const QByteArray &knowsOthers = "true") const
    {
        QByteArray known;
        for (const QByteArray &package : installed)
            known += "echo " + package + " installed\n";
        add("dpkg-query", known + "echo not-cmake installed; echo cmake deinstall");
        add("apt-get", "LOG=" + home.path() + "/log\nif [[ $* == *--print-uris* ]]; then " + knowsOthers +
                           " || exit 100; echo \"'http://a/b' b 5000000 MD5Sum:1\"; echo \"'http://a/c' c 500000 "
                           "MD5Sum:2\"; else echo $DEBIAN_FRONTEND \"$@\" >> $LOG; fi");
    }

    /// Standard input is a terminal where \a typed is typed, or no terminal if that is null.
    ScriptRun run(const char *script, const QStringList &arguments = {}, const QByteArray &typed = {}) const
    {
        QProcess process;
        int ours = -1;
        int theirs = -1;
        if (!typed.isNull()) {
            EXPECT_EQ(openpty(&ours, &theirs, nullptr, nullptr, nullptr), 0);
            EXPECT_EQ(write(ours, typed.constData(), typed.size()), typed.size());
            process.setChildProcessModifier([theirs] { dup2(theirs, STDIN_FILENO); });
        }
        const Descriptor here(ours);
        const Descriptor there(theirs);
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), QFile::decodeName(home / "bin"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TIDLO_SCRIPTS "/%1").arg(QLatin1StringView(script)), arguments);
        EXPECT_TRUE(process.waitForFinished(patience));
        return {.status = process.exitCode(),
                .output = process.readAllStandardOutput(),
                .errors = process.readAllStandardError()};
    }

    /// A CMake that knows two presets and logs other calls.
    void addCMake() const
    {
        add("cmake", "case $* in *list-presets*) echo '  \"release\" - Optimised'; echo '  \"asan\" - Sanitizers';; "
                     "*) echo \"$@\" >> " +
                         home.path() + "/log; echo configured;; esac");
    }

    /// The logged calls of the package manager, or of CMake, one per line.
    std::vector<std::string> requests() const
    {
        QFile log(QFile::decodeName(home / "log"));
        std::vector<std::string> lines;
        if (log.open(QFile::ReadOnly)) {
            for (const QByteArray &line : log.readAll().trimmed().split('\n'))
                lines.push_back(line.toStdString());
        }
        return lines;
    }

private:
    TemporaryHome home;
};

QByteArrayList wantedPackages()
{
    QFile list(QStringLiteral(TIDLO_SCRIPTS "/packages-debian"));
    EXPECT_TRUE(list.open(QFile::ReadOnly));
    QByteArrayList packages;
    for (const QByteArray &line : list.readAll().split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            packages.append(line);
    }
    return packages;
}

constexpr const char *isRoot = "echo 0";
constexpr const char *isSomebody = "echo 1000";

} // namespace

TEST(Bootstrap, IsSilentWhenAllIsThere)
{
    const SmallSystem system;
    system.addPackageManager(wantedPackages());
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output + run.errors, "");
    EXPECT_THAT(system.requests(), IsEmpty());
}

TEST(Bootstrap, NeedsNoPackageManagerWhenAllIsThere)
{
    const SmallSystem system;
    system.addPackageManager(wantedPackages());
    system.remove("apt-get");
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output + run.errors, "");
}

TEST(Bootstrap, WithoutAPackageManagerItNamesWhatIsMissing)
{
    const SmallSystem system;
    QByteArrayList installed = wantedPackages();
    installed.removeOne("cmake");
    system.addPackageManager(installed);
    system.remove("apt-get");
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "bootstrap: these packages are missing: cmake\n"
                          "bootstrap: there is no apt-get to install them with.\n");
}

TEST(Bootstrap, WhereThereIsNoDebianItLeavesTheRestToTheBuild)
{
    const ScriptRun run = SmallSystem().run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "bootstrap: this system is not Debian, so nothing is installed. Needed, by Debian's names: "
                          "scripts/packages-debian\n");
}

TEST(Bootstrap, InstallsExactlyWhatIsMissingAndSaysWhatAndHowMuch)
{
    const SmallSystem system;
    QByteArrayList installed = wantedPackages();
    installed.removeOne("cmake");
    installed.removeOne("ninja-build");
    system.addPackageManager(installed);
    system.add("id", isRoot);
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "bootstrap: these packages are missing: cmake ninja-build\n"
                          "bootstrap: with their dependencies, 6 MB must be downloaded.\n"
                          "bootstrap: all packages are installed.\n");
    EXPECT_THAT(system.requests(),
                ElementsAre(EndsWith(" update"), EndsWith(" install --yes --no-install-recommends cmake ninja-build")));
    EXPECT_THAT(system.requests(), Each(StartsWith("noninteractive "))) << "packages ask nothing either";
}

TEST(Bootstrap, SaysHowMuchAfterTheUpdateWhereAptKnowsNoPackagesBefore)
{
    const SmallSystem system;
    system.addPackageManager({}, "[[ -s $LOG ]]"); // The log exists after the update.
    system.add("id", isRoot);
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("\nbootstrap: how much must be downloaded is known only after "
                                                    "apt-get update.\n"
                                                    "bootstrap: with their dependencies, 6 MB must be "
                                                    "downloaded.\n"));
}

TEST(Bootstrap, InstallsTheListsThatAreNamed)
{
    const SmallSystem system;
    system.addPackageManager(wantedPackages());
    system.add("id", isRoot);
    const ScriptRun run =
        system.run("bootstrap", {QStringLiteral("packages-debian"), QStringLiteral("packages-debian-test")});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors.toStdString(), StartsWith("bootstrap: these packages are missing: ccache "));
}

TEST(Bootstrap, AsksWhoeverSitsAtTheTerminal)
{
    for (const char *who : {isRoot, isSomebody}) {
        const SmallSystem system;
        system.addPackageManager({});
        system.add("id", who);
        system.add("sudo", "\"$@\"");
        const ScriptRun refused = system.run("bootstrap", {}, "\n");
        EXPECT_EQ(refused.status, 1);
        EXPECT_THAT(refused.errors.toStdString(), EndsWith("[y/N] bootstrap: nothing was installed.\n"));
        EXPECT_THAT(system.requests(), IsEmpty());

        EXPECT_EQ(system.run("bootstrap", {}, "y\n").status, 0);
        EXPECT_EQ(system.requests().size(), 2);
    }
}

TEST(Bootstrap, ToldYesAsksNobody)
{
    for (const QByteArray &answer : {QByteArray(), QByteArray("n\n")}) { // Without a terminal, and with one.
        const SmallSystem system;
        system.addPackageManager({});
        system.add("id", isSomebody);
        system.add("sudo", "\"$@\"");
        EXPECT_EQ(system.run("bootstrap", {QStringLiteral("--yes")}, answer).status, 0);
        EXPECT_EQ(system.requests().size(), 2);
    }
}

TEST(Bootstrap, WithNobodyToAskItUsesNoSudo)
{
    const SmallSystem system;
    system.addPackageManager({});
    system.add("id", isSomebody);
    system.add("sudo", "\"$@\"");
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors.toStdString(), EndsWith("bootstrap: there is no terminal to ask at; scripts/bootstrap --yes "
                                                   "packages-debian installs them with sudo.\n"));
    EXPECT_THAT(system.requests(), IsEmpty());
}

TEST(Bootstrap, WhoIsNotRootNeedsSudo)
{
    const SmallSystem system;
    system.addPackageManager({});
    system.add("id", isSomebody);
    const ScriptRun run = system.run("bootstrap", {QStringLiteral("--yes")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors.toStdString(), EndsWith("bootstrap: only root or sudo can install them.\n"));
    EXPECT_THAT(system.requests(), IsEmpty());
}

TEST(Bootstrap, AFailingPackageManagerIsAFailure)
{
    const SmallSystem system;
    system.addPackageManager({});
    system.add("id", isRoot);
    system.add("apt-get", "exit 100");
    EXPECT_EQ(system.run("bootstrap").status, 100);
}

TEST(Bootstrap, AnInstallationIsNotBrokenOff)
{
    const SmallSystem system;
    system.addPackageManager({});
    system.add("id", isRoot);
    system.add("apt-get", "kill -TERM $$ $PPID; kill -INT $$ $PPID; kill -HUP $$ $PPID");

    const ScriptRun run = system.run("bootstrap");

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors.toStdString(), EndsWith("bootstrap: all packages are installed.\n"));
}

TEST(Build, BuildsWhatIsNamedAsThePresetSays)
{
    const SmallSystem system;
    system.addCMake();
    EXPECT_EQ(system.run("build", {QStringLiteral("asan"), QStringLiteral("one"), QStringLiteral("two")}).status, 0);
    EXPECT_THAT(system.requests(), ElementsAre("--preset asan", "--build build/asan --target one two"));
}

TEST(Build, BuildsAllOfTheReleaseUnlessToldOtherwise)
{
    const SmallSystem system;
    system.addCMake();
    EXPECT_EQ(system.run("build").status, 0);
    EXPECT_THAT(system.requests(), ElementsAre("--preset release", "--build build/release"));
}

TEST(Build, APresetThatIsUnknownIsNamedWithThoseThatAreThere)
{
    const SmallSystem system;
    system.addCMake();
    const ScriptRun run = system.run("build", {QStringLiteral("fast")});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "build: there is no preset \"fast\". There are: release, asan\n");
}

TEST(Build, WithoutCMakeItSaysWhatInstallsIt)
{
    const ScriptRun run = SmallSystem().run("build");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "build: cmake is missing; scripts/bootstrap installs it.\n");
}

} // namespace tidlo
