#include "support/Patience.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTcpServer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

namespace tidlo {

using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace {

/// Whether the process \a number exists; a zombie does not count.
bool isRunning(const QByteArray &number)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(QString::fromLatin1(number)));
    return !number.isEmpty() && file.open(QFile::ReadOnly) && !file.readAll().contains(") Z ");
}

/// Shell lines that start a process which does not end by itself, and wait for it.
const QByteArray waiting = "tail -f /dev/null & echo $$ $! | tr ' ' '\\n' >> $PROCESSES; echo open; wait";

/// A copy of scripts/run in a tree where everything is built: the proxy is the real one, the programs only log that
/// they ran.
class BuiltTree
{
public:
    explicit BuiltTree(const QByteArray &proxyHost)
    {
        home.folder("scripts");
        QFile::copy(QStringLiteral(TIDLO_SCRIPTS "/run"), QFile::decodeName(home / "scripts/run"));
        add("scripts/bootstrap", "");
        add("scripts/build", "echo build \"$@\" >> $LOG");
        add("build/release/tidlo-cli", note("cli"));
        add("build/release/tidlo", note("window"));
        home.link("build/release/tidlo-proxy", TIDLO_PROXY);
        write("build/release/CMakeCache.txt", "TIDLO_AI_PROXY_HOST:STRING=" + proxyHost + '\n');
    }

    void add(const FilePath &name, const QByteArray &lines) const
    {
        write(name, "#!/bin/bash\n" + lines + '\n');
        QFile::setPermissions(QFile::decodeName(home / name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Makes \a process run the script.
    void start(QProcess &process, const QStringList &arguments, const QStringList &environment) const
    {
        process.setEnvironment(QStringList{QStringLiteral("PATH=/usr/bin:/bin"), variable("HOME=", "home"),
                                           variable("LOG=", "log"), variable("PROCESSES=", "processes"),
                                           variable("GO=", "go")} +
                               environment);
        process.start(QFile::decodeName(home / "scripts/run"), arguments);
    }

    /// Runs the script; returns its status.
    int run(const QStringList &arguments = {}, const QStringList &environment = {})
    {
        QProcess process;
        start(process, arguments, environment);
        EXPECT_TRUE(process.waitForFinished(patience));
        errors = process.readAllStandardError().toStdString();
        return process.exitCode();
    }

    std::string log() const { return content("log"); }
    /// Whether any process is left whose number the programs wrote into the file "processes" beside the log.
    bool isAnythingLeft() const
    {
        const QByteArrayList processes = QByteArray::fromStdString(content("processes")).split('\n');
        EXPECT_GT(processes.size(), 1);
        return std::ranges::any_of(processes, isRunning);
    }
    /// Makes the file that $GO names.
    void letGoOn() const { home.file("go", 0); }
    /// The files in the script's home folder.
    std::vector<std::string> filesInHome() const
    {
        const QDir folder(QFile::decodeName(home / "home"));
        QDirIterator files(folder.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        std::vector<std::string> names;
        while (files.hasNext())
            names.push_back(folder.relativeFilePath(files.next()).toStdString());
        return names;
    }
    std::string proxyLog() const { return content("build/release/proxy.log"); }
    bool hasCertificate() const
    {
        return QFile::exists(QFile::decodeName(home / "home/.local/state/tidlo-proxy/key.pem"));
    }

    std::string errors; ///< The standard error output of the last run.

private:
    static QByteArray note(const QByteArray &name)
    {
        return "echo " + name + " \"$@\" ${SSL_CERT_FILE:+trusts $SSL_CERT_FILE} >> $LOG";
    }

    QString variable(const char *name, const char *file) const
    {
        return QString::fromLatin1(name) + QFile::decodeName(home / file);
    }

    void write(const FilePath &name, const QByteArray &bytes) const
    {
        QFile file(QFile::decodeName(home.file(name, 0)));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    }

    std::string content(const FilePath &name) const
    {
        QFile file(QFile::decodeName(home / name));
        return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    TemporaryHome home;
};

/// The tests may have been started with interruptions ignored, which a shell cannot undo.
void heedInterruptions()
{
    std::signal(SIGINT, SIG_DFL);
}

const QStringList display{QStringLiteral("DISPLAY=:1")};
const QStringList key{QStringLiteral("GEMINI_API_KEY=key")};

int freePort()
{
    QTcpServer server;
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    return server.serverPort();
}

bool isListening(int port)
{
    QTcpServer server;
    return !server.listen(QHostAddress::LocalHost, static_cast<quint16>(port));
}

QByteArray localhost(int port)
{
    return "localhost:" + QByteArray::number(port);
}

} // namespace

TEST(Run, OpensTheWindowBesideAProxyThatHasTheKeyAndStopsTheProxy)
{
    const int port = freePort();
    BuiltTree tree(localhost(port));

    EXPECT_EQ(tree.run({}, display + key), 0) << tree.errors;

    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\nwindow\n");
    EXPECT_THAT(tree.errors, StartsWith("run: explanations come from https://127.0.0.1:" + std::to_string(port) +
                                        ". Questions go to "));
    EXPECT_FALSE(isListening(port));
}

TEST(Run, WithoutADisplayScansAndExplainsInTheTerminal)
{
    const int port = freePort();
    BuiltTree tree(localhost(port));

    EXPECT_EQ(tree.run({}, key), 0) << tree.errors;

    EXPECT_EQ(tree.log(), "build release tidlo-cli tidlo-proxy\ncli scan\ncli explain\n");
    EXPECT_THAT(tree.errors, StartsWith("run: there is no display, so this is the terminal's view.\n"));
    EXPECT_FALSE(isListening(port));
}

TEST(Run, StopsTheProxyWhenTheProgramFails)
{
    const int port = freePort();
    BuiltTree tree(localhost(port));
    tree.add("build/release/tidlo", "exit 7");

    EXPECT_EQ(tree.run({}, display + key), 7);

    EXPECT_FALSE(isListening(port));
}

TEST(Run, StopsEverythingWhenItIsTerminatedOrInterrupted)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        const int port = freePort();
        BuiltTree tree(localhost(port));
        tree.add("build/release/tidlo", "trap 'echo closed >> $LOG; kill %1; exit' TERM\n"
                                        "tail -f /dev/null & echo open; wait");
        QProcess process;
        process.setChildProcessModifier(heedInterruptions);
        tree.start(process, {}, display + key);
        ASSERT_TRUE(process.waitForReadyRead(patience));
        ASSERT_EQ(process.readAllStandardOutput(), "open\n");

        ::kill(static_cast<pid_t>(process.processId()), signal);

        ASSERT_TRUE(process.waitForFinished(patience)) << signal;
        EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\nclosed\n") << signal;
        EXPECT_FALSE(isListening(port)) << signal;
    }
}

TEST(Run, StopsWhatTheWindowStartedToo)
{
    BuiltTree tree(localhost(freePort()));
    tree.add("build/release/tidlo", waiting);
    QProcess process;
    tree.start(process, {}, display);
    ASSERT_TRUE(process.waitForReadyRead(patience));

    process.terminate();

    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_FALSE(tree.isAnythingLeft());
}

TEST(Run, StopsTheBuildWhenItIsInterrupted)
{
    BuiltTree tree("explain.example");
    tree.add("scripts/build", waiting);
    QProcess process;
    process.setReadChannel(QProcess::StandardError);
    process.setChildProcessModifier(heedInterruptions);
    tree.start(process, {}, display);
    ASSERT_TRUE(process.waitForReadyRead(patience));

    ::kill(static_cast<pid_t>(process.processId()), SIGINT);

    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(tree.log(), "") << "no window opens";
    EXPECT_FALSE(tree.isAnythingLeft());
}

TEST(Run, WaitsForAnInstallationThatIsNotToBeBrokenOff)
{
    BuiltTree tree("explain.example");
    tree.add("scripts/bootstrap",
             "trap '' TERM; echo open; until [[ -e $GO ]]; do sleep 0.01; done; echo done >> $LOG");
    QProcess process;
    process.setReadChannel(QProcess::StandardError);
    tree.start(process, {}, display);
    ASSERT_TRUE(process.waitForReadyRead(patience));

    process.terminate();
    tree.letGoOn();

    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(tree.log(), "done\n");
}

TEST(Run, LetsTheInstallationAskAndTellsItOfYes)
{
    BuiltTree tree("explain.example");
    tree.add("scripts/bootstrap", "read -r answer; echo told \"$*\" and $answer >> $LOG; exit 1");
    for (const QStringList &options : {QStringList(), QStringList{QStringLiteral("--yes")}}) {
        QProcess process;
        tree.start(process, options, display);
        process.write("no\n");
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitCode(), 1);
    }

    EXPECT_EQ(tree.log(), "told  and no\ntold --yes and no\n");
}

TEST(Run, FailsWhereTheBuildFails)
{
    BuiltTree tree("explain.example");
    tree.add("scripts/build", "exit 5");

    EXPECT_EQ(tree.run({}, display), 5);

    EXPECT_EQ(tree.log(), "");
}

TEST(Run, ChangesNothingInTheHomeFolderButTheCertificate)
{
    BuiltTree tree(localhost(freePort()));
    tree.add("scripts/build", "cache=${CCACHE_DIR:-$HOME/.ccache}; mkdir -p \"$cache\"; echo > \"$cache/compiled\"");

    EXPECT_EQ(tree.run({}, display + key), 0);
    EXPECT_EQ(tree.run({}, key), 0);

    EXPECT_THAT(tree.filesInHome(),
                UnorderedElementsAre(".local/state/tidlo-proxy/certificate.pem", ".local/state/tidlo-proxy/key.pem"));
}

TEST(Run, OpensTheWindowOnWaylandAlone)
{
    BuiltTree tree("explain.example");
    tree.add("build/release/tidlo", "echo on $QT_QPA_PLATFORM >> $LOG");

    EXPECT_EQ(tree.run({}, {QStringLiteral("WAYLAND_DISPLAY=wayland-0")}), 0);

    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\non wayland\n");
}

TEST(Run, LeavesTheChoiceBetweenTwoDisplaysToQt)
{
    BuiltTree tree("explain.example");
    tree.add("build/release/tidlo", "echo on ${QT_QPA_PLATFORM:-what Qt likes} >> $LOG");

    EXPECT_EQ(tree.run({}, display + QStringList{QStringLiteral("WAYLAND_DISPLAY=wayland-0")}), 0);

    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\non what Qt likes\n");
}

TEST(Run, StartsNoProxyWhereOneAnswers)
{
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress::LocalHost));
    BuiltTree tree(localhost(other.serverPort()));

    EXPECT_EQ(tree.run({}, display + key), 0);

    EXPECT_EQ(tree.errors, "");
    EXPECT_FALSE(tree.hasCertificate());
}

TEST(Run, StartsNoProxyWithoutAKey)
{
    BuiltTree tree(localhost(freePort()));

    EXPECT_EQ(tree.run({}, display), 0);

    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\nwindow\n");
    EXPECT_EQ(tree.errors, "");
    EXPECT_FALSE(tree.hasCertificate());
}

TEST(Run, StartsNoProxyForAProgramThatAsksAnother)
{
    BuiltTree tree("explain.example");

    EXPECT_EQ(tree.run({}, display + key), 0);

    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\nwindow\n");
    EXPECT_EQ(tree.errors, "");
    EXPECT_FALSE(tree.hasCertificate());
}

TEST(Run, SaysWhereToLookWhenTheProxyDoesNotStart)
{
    BuiltTree tree(localhost(freePort()));

    EXPECT_EQ(tree.run({}, display + QStringList{QStringLiteral("GEMINI_API_KEY=\x01")}), 0);

    EXPECT_EQ(tree.errors, "run: the proxy did not start; build/release/proxy.log says why.\n");
    EXPECT_EQ(tree.proxyLog(), "GEMINI_API_KEY contains characters that a key cannot have.\n");
    EXPECT_EQ(tree.log(), "build release tidlo tidlo-proxy\nwindow\n");
}

TEST(Run, TakesNoOptionButYes)
{
    BuiltTree tree("explain.example");

    EXPECT_EQ(tree.run({QStringLiteral("--paths")}), 2);
    EXPECT_EQ(tree.run({QStringLiteral("--yes"), QStringLiteral("--paths")}), 2);

    EXPECT_EQ(tree.log(), "");
    EXPECT_EQ(tree.errors,
              "run: takes no option except --yes; build/release/tidlo-cli --help lists those of the program.\n");
}

} // namespace tidlo
