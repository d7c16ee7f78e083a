#include "platform/ApplicationCopier.h"
#include "platform/Bundle.h"
#include "support/InChild.h"
#include "support/Patience.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QProcess>

#include <gmock/gmock.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tidlo {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::StartsWith;

namespace {

class BundledApplication : public testing::Test
{
protected:
    BundledApplication()
    {
        home.folder("My apps");
        EXPECT_EQ(copyApplication(TIDLO_BUNDLE, bundle), std::nullopt);
        home.folder("tmp");
    }

    /// The variables that a program needs, and none of the person who runs the tests.
    std::map<const char *, FilePath> environment() const
    {
        return {{"HOME", home.path()},
                {"XDG_DATA_HOME", home / ".local/share"},
                {"XDG_CONFIG_HOME", home / ".config"},
                {"XDG_CACHE_HOME", home / ".cache"},
                {"XDG_RUNTIME_DIR", home / "tmp"},
                {"TMPDIR", home / "tmp"},
                {"QT_QPA_PLATFORM", "offscreen"},
                {"QT_QUICK_BACKEND", "software"}};
    }

    void prepare(QProcess &process, const char *program) const
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const auto &[name, value] : environment())
            variables.insert(QString::fromLatin1(name), QString::fromUtf8(value));
        variables.insert(QStringLiteral("QSG_INFO"), QStringLiteral("1"));
        process.setProcessEnvironment(variables);
        process.setProgram(QString::fromUtf8(bundle + "/Contents/MacOS/" + program));
        process.setProcessChannelMode(QProcess::MergedChannels);
    }

    /// Runs a program that acts as the application at \a running would, and waits for it and for all processes that it
    /// started; \a meanwhile is called with each of these once the program has ended.
    ChildResult drive(const QByteArrayList &arguments, const std::function<void(pid_t)> &meanwhile = {}) const
    {
        const FilePath driver = bundle + "/Contents/MacOS/driver";
        std::filesystem::copy_file(TIDLO_BUNDLE_DRIVER, driver.toStdString(),
                                   std::filesystem::copy_options::overwrite_existing);
        return inChild([&] {
            prctl(PR_SET_CHILD_SUBREAPER, 1);
            const pid_t program = fork();
            if (program == 0)
                become(driver, arguments);
            int status = 0;
            waitpid(program, &status, 0);
            for (const pid_t left : children()) {
                if (meanwhile)
                    meanwhile(left);
            }
            while (wait(nullptr) > 0) {
            }
            return WIFEXITED(status) && WEXITSTATUS(status) == 0 && !HasFailure();
        });
    }

    std::string inventoryText() const
    {
        std::string names;
        for (const auto &[name, entry] : home.inventory())
            names += name + '\n';
        return names;
    }

    TemporaryHome home;
    FilePath bundle = home / "My apps/Tidlo.app";

private:
    void become(const FilePath &program, const QByteArrayList &arguments) const
    {
        for (const auto &[name, value] : environment())
            setenv(name, value.constData(), 1);
        std::vector<char *> words{const_cast<char *>(program.constData())};
        for (const QByteArray &argument : arguments)
            words.push_back(const_cast<char *>(argument.constData()));
        words.push_back(nullptr);
        execv(program.constData(), words.data());
        _exit(EXIT_FAILURE);
    }

    static std::vector<pid_t> children()
    {
        QFile list(QStringLiteral("/proc/self/task/%1/children").arg(getpid()));
        EXPECT_TRUE(list.open(QIODevice::ReadOnly));
        std::vector<pid_t> found;
        for (const QByteArray &number : list.readAll().split(' ')) {
            if (number.toInt() > 0)
                found.push_back(number.toInt());
        }
        return found;
    }
};

} // namespace

TEST_F(BundledApplication, SaysWhoItIs)
{
    EXPECT_EQ(bundleAt(bundle), (Bundle{.path = bundle,
                                        .executable = bundle + "/Contents/MacOS/Tidlo",
                                        .identifier = "com.tidlo.storagecleaner"}));
    const auto info = readInfoPlist(bundle + "/Contents/Info.plist");
    EXPECT_EQ(info.value(QStringLiteral("CFBundleShortVersionString")), QStringLiteral(TIDLO_VERSION));
    EXPECT_EQ(info.value(QStringLiteral("CFBundleVersion")), QStringLiteral(TIDLO_VERSION));
    for (const char *use : {"AppleEvents", "AppData", "DesktopFolder", "DocumentsFolder", "DownloadsFolder"}) {
        const QString reason = info.value(QStringLiteral("NS%1UsageDescription").arg(QLatin1StringView(use)));
        EXPECT_TRUE(reason.startsWith(QStringLiteral("Tidlo "))) << use;
    }
}

TEST_F(BundledApplication, HoldsAllItNeeds)
{
    const auto entries = home.inventory();
    const std::string contents = "My apps/Tidlo.app/Contents/";
    for (const char *program : {"MacOS/Tidlo", "MacOS/tidlo-cli", "MacOS/tidlo-proxy"}) {
        ASSERT_THAT(entries, Contains(Key(contents + program)));
        EXPECT_EQ(entries.at(contents + program).mode & 0111, mode_t(0111)) << program;
    }
    QFile logo(QString::fromUtf8(bundle + "/Contents/Resources/logo.png"));
    ASSERT_TRUE(logo.open(QIODevice::ReadOnly));
    const QByteArray beginning = logo.read(24);
    EXPECT_TRUE(beginning.startsWith("\x89PNG\r\n"));
    EXPECT_EQ(beginning.mid(16), QByteArray("\0\0\2\0\0\0\2\0", 8)); // Width and height of the icon.
    const auto icon = readInfoPlist(bundle + "/Contents/Info.plist").value(QStringLiteral("CFBundleIconFile"));
    EXPECT_THAT(entries, Contains(Key(contents + "Resources/" + icon.toStdString())));
}

TEST_F(BundledApplication, OpensItsWindowWhereverItWasCopied)
{
    QProcess process;
    prepare(process, "Tidlo");
    process.start();
    ASSERT_TRUE(process.waitForStarted(patience));

    QByteArray output;
    while (!output.contains("scenegraph") && process.waitForReadyRead(patience)) // When first drawn.
        output += process.readAll();

    EXPECT_TRUE(output.contains("scenegraph")) << output.constData();
    process.kill();
    process.waitForFinished(patience);
}

TEST_F(BundledApplication, ScansFromATerminalWhereverItWasCopied)
{
    home.file("Sites/one/node_modules/a.js", 16'384);
    QProcess process;
    prepare(process, "tidlo-cli");
    process.setArguments({QStringLiteral("scan")});
    process.start();
    ASSERT_TRUE(process.waitForFinished(patience));

    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_THAT(process.readAll().toStdString(), HasSubstr("Rebuildable project folders"));
}

TEST_F(BundledApplication, PlacesItselfAndStartsTheCopy)
{
    const FilePath destination = home.folder("Applications") + "/Tidlo.app";

    const FilePath started = home / "tmp/started"; // One byte for each start.

    const ChildResult result = drive({"place", destination}, [&](pid_t copy) {
        std::ofstream(started.toStdString(), std::ios::app) << 'x';
        const std::string executable = std::filesystem::read_symlink("/proc/" + std::to_string(copy) + "/exe");
        EXPECT_EQ(executable, (destination + "/Contents/MacOS/Tidlo").toStdString());
        kill(copy, SIGKILL);
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(result.output, IsEmpty());
    ASSERT_THAT(home.inventory(), Contains(Key("tmp/started")));
    EXPECT_EQ(home.inventory().at("tmp/started").size, 1);
    EXPECT_EQ(bundleAt(destination).identifier, "com.tidlo.storagecleaner");
    EXPECT_EQ(bundleAt(bundle).identifier, "com.tidlo.storagecleaner");
    QFile entry(QString::fromUtf8(home / ".local/share/applications/com.tidlo.storagecleaner.desktop"));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_THAT(entry.readAll().toStdString(),
                HasSubstr("\nExec=\"" + destination.toStdString() + "/Contents/MacOS/Tidlo\"\n"));
    EXPECT_THAT(home.inventory(),
                Contains(Key(".local/share/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png")));
}

TEST_F(BundledApplication, UninstallsItselfAndNothingElse)
{
    for (const char *own : {".local/share/applications/com.tidlo.storagecleaner.desktop",
                            ".local/share/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png",
                            ".config/com.tidlo.storagecleaner.conf", ".cache/com.tidlo.storagecleaner/a/b"})
        home.file(own);
    for (const char *kept : {"My apps/mine.txt", ".local/share/applications/other.desktop", ".config/other.conf",
                             ".cache/com.tidlo.storagecleaner.mine", "Library/Caches/com.tidlo.storagecleaner/mine"})
        home.file(kept);
    for (const char *empty : {"My apps/empty", ".cache/empty", "Tidlo.app/empty"})
        home.folder(empty);

    const ChildResult result = drive({"uninstall"});
    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(result.output, IsEmpty());

    std::set<std::string> names;
    for (const auto &[name, entry] : home.inventory()) {
        if (!S_ISDIR(entry.mode) && !name.starts_with(".local/share/Trash/"))
            names.insert(name);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("My apps/mine.txt", ".local/share/applications/other.desktop",
                                                     ".config/other.conf", ".cache/com.tidlo.storagecleaner.mine",
                                                     "Library/Caches/com.tidlo.storagecleaner/mine",
                                                     "tmp/uninstall_tidlo.sh"));
    for (const char *empty : {"My apps/empty", ".cache/empty", "Tidlo.app/empty", ".config", "tmp",
                              ".local/share/applications", ".local/share/icons/hicolor/512x512/apps"})
        EXPECT_THAT(home.inventory(), Contains(Key(empty)));
    EXPECT_THAT(home.inventory(), Not(Contains(Key("My apps/Tidlo.app"))));
    EXPECT_THAT(home.inventory(), Not(Contains(Key(".cache/com.tidlo.storagecleaner"))));
    EXPECT_THAT(home.inventory(), AllOf(Contains(Key(".local/share/Trash/files/Tidlo.app/Contents/MacOS/Tidlo")),
                                        Contains(Key(".local/share/Trash/info/Tidlo.app.trashinfo"))));

    // Once more, now that nothing of it is left.
    const std::string before = inventoryText();
    EXPECT_EQ(std::system(("bash '" + home.path() + "/tmp/uninstall_tidlo.sh'").constData()), 0);
    EXPECT_EQ(inventoryText(), before);
}

TEST_F(BundledApplication, StaysWhereTheTrashDoesNotTakeItOnPurpose)
{
    const FilePath inTrash = home.folder(".Trash") + "/Tidlo.app";
    ASSERT_EQ(std::rename(bundle.constData(), inTrash.constData()), 0);
    bundle = inTrash;

    const ChildResult result = drive({"uninstall"});

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(home.inventory(), Contains(Key(".Trash/Tidlo.app/Contents/MacOS/Tidlo")));
    EXPECT_THAT(home.inventory(), Not(Contains(Key(".local/share/Trash"))));
}

TEST_F(BundledApplication, IsDeletedOnlyWhereTheSystemFailsToMoveIt)
{
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(denySystemCall(SYS_renameat2, EIO));
        return drive({"uninstall"}).succeeded;
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(home.inventory(), Not(Contains(Key("My apps/Tidlo.app"))));
    EXPECT_THAT(home.inventory(), Not(Contains(Key(".local/share/Trash/files/Tidlo.app"))));
}

TEST_F(BundledApplication, IsFoundByItsScriptWhateverItsName)
{
    const FilePath odd = home.folder("it's \xff \n*") + "/Tidlo.app";
    ASSERT_EQ(std::rename(bundle.constData(), odd.constData()), 0);
    bundle = odd;

    EXPECT_TRUE(drive({"uninstall"}).succeeded);

    EXPECT_THAT(home.inventory(), Not(Contains(Key("it's \xff \n*/Tidlo.app"))));
    EXPECT_THAT(home.inventory(), Contains(Key(".local/share/Trash/files/Tidlo.app/Contents/MacOS/Tidlo")));
}

TEST_F(BundledApplication, WritesAScriptThatShellcheckAccepts)
{
    if (std::system("command -v shellcheck > /dev/null") != 0)
        GTEST_SKIP() << "There is no shellcheck here.";
    ASSERT_TRUE(drive({"uninstall"}).succeeded);

    EXPECT_EQ(std::system(("shellcheck '" + home.path() + "/tmp/uninstall_tidlo.sh'").constData()), 0);
}

} // namespace tidlo
