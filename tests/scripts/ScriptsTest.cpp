#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidlo {

using testing::HasSubstr;
using testing::Not;
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

    /// A program that does what the lines of shell say.
    void add(const FilePath &name, const QByteArray &lines) const
    {
        QFile program(QFile::decodeName(home.file("bin/" + name, 0)));
        ASSERT_TRUE(program.open(QFile::WriteOnly));
        program.write("#!" + home.path() + "/bin/bash\n" + lines + '\n');
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    /// Debian's tools, which know of the packages \a installed and write down what is asked of them.
    void addPackageManager(const QByteArrayList &installed) const
    {
        QByteArray known;
        for (const QByteArray &package : installed)
            known += "echo " + package + " installed\n";
        add("dpkg-query", known + "echo not-wanted deinstall");
        add("apt-get", "echo apt-get \"$@\" >> " + home.path() + "/log");
    }

    ScriptRun run(const char *script, const QStringList &arguments = {}) const
    {
        QProcess process;
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), QFile::decodeName(home / "bin"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TIDLO_SCRIPTS "/%1").arg(QLatin1StringView(script)), arguments);
        EXPECT_TRUE(process.waitForFinished());
        return {.status = process.exitCode(),
                .output = process.readAllStandardOutput(),
                .errors = process.readAllStandardError()};
    }

    /// What was asked of the package manager, a line for each call.
    QByteArrayList requests() const
    {
        QFile log(QFile::decodeName(home / "log"));
        return log.open(QFile::ReadOnly) ? log.readAll().trimmed().split('\n') : QByteArrayList();
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
    SmallSystem system;
    system.addPackageManager(wantedPackages());
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output + run.errors, "");
    EXPECT_EQ(system.requests(), QByteArrayList());
}

TEST(Bootstrap, InstallsExactlyWhatIsMissingAndSaysSo)
{
    SmallSystem system;
    QByteArrayList installed = wantedPackages();
    installed.removeOne("cmake");
    installed.removeOne("shellcheck");
    system.addPackageManager(installed);
    system.add("id", isRoot);
    const ScriptRun run = system.run("bootstrap");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors.toStdString(), StartsWith("bootstrap: installing cmake shellcheck\n"));
    ASSERT_EQ(system.requests().size(), 2);
    EXPECT_THAT(system.requests()[0].toStdString(), testing::EndsWith(" update"));
    EXPECT_THAT(system.requests()[1].toStdString(),
                testing::EndsWith(" install --yes --no-install-recommends cmake shellcheck"));
}

TEST(Bootstrap, InstallsTheListsThatAreNamed)
{
    SmallSystem system;
    system.addPackageManager(wantedPackages());
    system.add("id", isRoot);
    const ScriptRun run =
        system.run("bootstrap", {QStringLiteral("packages-debian"), QStringLiteral("packages-debian-bench")});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors.toStdString(), StartsWith("bootstrap: installing gdu "));
}

TEST(Bootstrap, WhoIsNotRootInstallsThroughSudo)
{
    SmallSystem system;
    system.addPackageManager({});
    system.add("id", isSomebody);
    EXPECT_EQ(system.run("bootstrap").status, 1);
    EXPECT_THAT(system.run("bootstrap").errors.toStdString(), HasSubstr("only root or sudo can install them: ccache"));
    EXPECT_EQ(system.requests(), QByteArrayList());

    system.add("sudo", "\"$@\"");
    EXPECT_EQ(system.run("bootstrap").status, 0);
    EXPECT_EQ(system.requests().size(), 2);
}

TEST(Bootstrap, AFailingPackageManagerIsAFailure)
{
    SmallSystem system;
    system.addPackageManager({});
    system.add("id", isRoot);
    system.add("apt-get", "exit 100");
    EXPECT_EQ(system.run("bootstrap").status, 100);
}

TEST(Bootstrap, AnInstallationIsNotBrokenOff)
{
    SmallSystem system;
    system.addPackageManager({});
    system.add("id", isRoot);
    system.add("apt-get", "kill -TERM $$ $PPID; kill -INT $$ $PPID; kill -HUP $$ $PPID");

    const ScriptRun run = system.run("bootstrap");

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors.toStdString(), testing::EndsWith("bootstrap: all is there.\n"));
}

TEST(Bootstrap, OnASystemItDoesNotKnowItSaysWhatIsNeeded)
{
    const ScriptRun run = SmallSystem().run("bootstrap");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("has no apt-get"));
    for (const QByteArray &package : wantedPackages())
        EXPECT_THAT(run.errors.toStdString(), HasSubstr(package.toStdString()));
}

TEST(Build, APresetThatIsUnknownIsNamedWithThoseThatAreThere)
{
    SmallSystem system;
    system.add("cmake", "echo '  \"release\" - Optimised'; echo '  \"asan\" - Sanitizers'");
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
