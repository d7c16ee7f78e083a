#include "app/AppTest.h"
#include "support/InChild.h"

#include <QFile>

#include <cstdio>
#include <cstring>

#include <sys/syscall.h>

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::InSequence;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class UninstallFlow : public AppTest
{
protected:
    UninstallFlow() { home.file("from/Tidlo.app/Contents/MacOS/Tidlo"); }

    FilePath script() const { return temporaryFolder + "/uninstall_tidlo.sh"; }

    std::string scriptText() const
    {
        QFile file(QFile::decodeName(script()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    /// Uninstalls, and returns what was printed.
    std::string uninstall()
    {
        AppViewModel &app = model();
        NotificationLog log(app);
        testing::internal::CaptureStdout();
        app.uninstallTidloCompletely();
        EXPECT_THAT(log.taken(), IsEmpty());
        return testing::internal::GetCapturedStdout();
    }

    /// Expects that nothing is written or started, and that \a reason is printed.
    void expectRefused(const Bundle &refused, const std::string &reason)
    {
        SCOPED_TRACE(refused.path.toStdString() + " " + refused.executable.toStdString());
        bundle = refused;
        closeWindow();
        EXPECT_CALL(*workspace, start).Times(0);
        EXPECT_CALL(*workspace, terminateApplication).Times(0);

        EXPECT_EQ(uninstall(), "Tidlo uninstall failed to start: " + reason + "\n");

        EXPECT_FALSE(home.inventory().contains("tmp/uninstall_tidlo.sh"));
        testing::Mock::VerifyAndClearExpectations(workspace.get());
    }

    const std::string notOurs = "The running program is not in a bundle of its own.";
    const std::string holdsHome = "The bundle of the application holds the home folder, or may do so.";

    static Bundle bundleAtPath(const FilePath &path)
    {
        return {.path = path, .executable = path + "/Contents/MacOS/Tidlo", .identifier = "com.tidlo.storagecleaner"};
    }
};

} // namespace

TEST_F(UninstallFlow, StartsItsScriptAndQuits)
{
    const InSequence inThisOrder;
    EXPECT_CALL(*workspace, start(FilePath("/bin/bash"), QByteArrayList{script()})).WillOnce([&](auto &&...) {
        EXPECT_THAT(scriptText(), StartsWith("#!/usr/bin/env bash\nsleep 1\n"));
        return std::nullopt;
    });
    EXPECT_CALL(*workspace, terminateApplication());

    EXPECT_EQ(uninstall(), "");

    EXPECT_EQ(home.inventory().at("tmp/uninstall_tidlo.sh").mode, mode_t(S_IFREG | 0700));
    EXPECT_THAT(scriptText(), EndsWith("\""));
}

TEST_F(UninstallFlow, NamesTheApplicationInQuotesWhereverItLies)
{
    bundle = bundleAtPath(home / "My own apps/Tidlo.app");
    home.file("My own apps/Tidlo.app/Contents/MacOS/Tidlo");
    EXPECT_EQ(uninstall(), "");

    const std::string path = bundle.path.toStdString();
    EXPECT_THAT(scriptText(), HasSubstr(" --at \"" + path + "\" >/dev/null 2>&1 || "));
    EXPECT_THAT(scriptText(), HasSubstr(" rm -rf \"" + path + "\" ;; esac\n"));
}

TEST_F(UninstallFlow, UsesTheIdentifierOfItsOwnWhereTheBundleHasNone)
{
    bundle.identifier = std::nullopt;

    EXPECT_EQ(uninstall(), "");

    EXPECT_THAT(scriptText(), HasSubstr("/com.tidlo.storagecleaner.conf\""));
    EXPECT_THAT(scriptText(), EndsWith("/com.tidlo.storagecleaner\""));
}

TEST_F(UninstallFlow, ReplacesAnEarlierScript)
{
    home.file("tmp/uninstall_tidlo.sh", 100'000);
    home.file("kept", 1);

    EXPECT_EQ(uninstall(), "");
    EXPECT_THAT(scriptText(), Not(HasSubstr("xxx")));

    unlink(script().constData());
    home.link("tmp/uninstall_tidlo.sh", home / "kept");
    EXPECT_EQ(uninstall(), "");
    EXPECT_EQ(home.inventory().at("kept").size, 1);
    EXPECT_EQ(home.inventory().at("tmp/uninstall_tidlo.sh").mode, mode_t(S_IFREG | 0700));
}

TEST_F(UninstallFlow, SaysWhenTheTemporaryFolderCannotBeWrittenAndStays)
{
    EXPECT_CALL(*workspace, start).Times(0);
    EXPECT_CALL(*workspace, terminateApplication).Times(0);
    home.folder("tmp/uninstall_tidlo.sh");

    EXPECT_EQ(uninstall(), std::string("Tidlo uninstall failed to start: ") + std::strerror(EISDIR) + "\n");
}

TEST_F(UninstallFlow, SaysWhenTheTemporaryFolderMayNotBeWrittenAndStays)
{
    chmod(home.path().constData(), 0755);
    chmod(temporaryFolder.constData(), 0555);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_CALL(*workspace, start).Times(0);
        EXPECT_CALL(*workspace, terminateApplication).Times(0);
        EXPECT_EQ(uninstall(), std::string("Tidlo uninstall failed to start: ") + std::strerror(EACCES) + "\n");
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(UninstallFlow, SaysWhenTheScriptDoesNotStartAndStays)
{
    EXPECT_CALL(*workspace, start).WillOnce(testing::Return(QStringLiteral("No bash.")));
    EXPECT_CALL(*workspace, terminateApplication).Times(0);

    EXPECT_EQ(uninstall(), "Tidlo uninstall failed to start: No bash.\n");
}

TEST_F(UninstallFlow, SaysWhenTheScriptCannotBeMadeExecutableAndStays)
{
    model();
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(denySystemCall(SYS_fchmod, EPERM));
        EXPECT_CALL(*workspace, start).Times(0);
        EXPECT_CALL(*workspace, terminateApplication).Times(0);
        EXPECT_EQ(uninstall(), std::string("Tidlo uninstall failed to start: ") + std::strerror(EPERM) + "\n");
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_FALSE(home.inventory().contains("tmp/uninstall_tidlo.sh"));
}

TEST_F(UninstallFlow, RefusesWhatIsNoBundleOfItsOwn)
{
    for (const char *file : {"build/tidlo", "Other.app/Contents/MacOS/Tidlo", "Other.app/build/Tidlo",
                             "Other.app/Contents/MacOS/inner/Tidlo", "folder/Contents/MacOS/Tidlo"})
        home.file(file);
    const FilePath lone = home / "build/tidlo";
    const FilePath other = home / "Other.app";
    expectRefused({}, notOurs);
    expectRefused({.path = "/", .executable = "/Contents/MacOS/Tidlo", .identifier = std::nullopt}, notOurs);
    expectRefused({.path = lone, .executable = lone, .identifier = std::nullopt}, notOurs);
    expectRefused({.path = other, .executable = other + "/Contents/MacOS/Tidlo", .identifier = "com.example.other"},
                  notOurs);
    expectRefused({.path = other, .executable = other + "/build/Tidlo", .identifier = {}}, notOurs);
    expectRefused({.path = other, .executable = other + "/Contents/MacOS/inner/Tidlo", .identifier = {}}, notOurs);
    expectRefused(bundleAtPath(home / "folder"), notOurs);
}

TEST_F(UninstallFlow, RemovesPreferencesAndCachesAloneWhereThereIsNoBundle)
{
    bundle = {.path = home / "bin/tidlo", .executable = home / "bin/tidlo", .identifier = std::nullopt};
    model();
    const InSequence order;
    EXPECT_CALL(*workspace, start(FilePath("/bin/bash"), ElementsAre(script())));
    EXPECT_CALL(*workspace, terminateApplication);

    model().removePreferencesAndCaches();

    EXPECT_THAT(scriptText(), HasSubstr("/com.tidlo.storagecleaner.conf\""));
    EXPECT_THAT(scriptText(), Not(HasSubstr("bin/tidlo")));
    EXPECT_THAT(scriptText(), Not(HasSubstr("trash-bundle")));
}

TEST_F(UninstallFlow, FollowsTheBundleToWhereItWasMoved)
{
    model();
    bundle = bundleAtPath(home / "moved/Tidlo.app");
    home.file("moved/Tidlo.app/Contents/MacOS/Tidlo");

    EXPECT_EQ(uninstall(), "");

    EXPECT_THAT(scriptText(), HasSubstr(" rm -rf \"" + bundle.path.toStdString() + "\" "));
}

TEST_F(UninstallFlow, RefusesAFolderThatTookThePlaceOfTheBundle)
{
    ASSERT_EQ(std::rename(bundle.path.constData(), (home / "from/Old.app").constData()), 0);
    home.file("from/Tidlo.app/mine");

    expectRefused(bundle, notOurs);
}

TEST_F(UninstallFlow, RefusesTheHomeAndWhatHoldsIt)
{
    const FilePath owner = home.folder("home.app");
    const FilePath inner = home.folder("home.app/users/me");
    home.file("home.app/Contents/MacOS/Tidlo");
    home.link("link.app", owner);
    for (const FilePath &homeFolder : {owner, inner, home / "link.app/users"}) {
        ON_CALL(*files, homeDirectoryForCurrentUser).WillByDefault(testing::Return(homeFolder));
        expectRefused(bundleAtPath(owner), holdsHome);
        expectRefused(bundleAtPath(home / "link.app"), holdsHome);
    }
}

TEST_F(UninstallFlow, RefusesWhereNobodyCanTellWhereTheHomeIs)
{
    home.link("circle", home / "circle");
    for (const FilePath &homeFolder : {home / "missing", home / "circle", FilePath()}) {
        ON_CALL(*files, homeDirectoryForCurrentUser).WillByDefault(testing::Return(homeFolder));
        expectRefused(bundle, holdsHome);
    }
}

TEST_F(UninstallFlow, RefusesAPathThatAShellWouldReadAndNamesIt)
{
    const std::string reason = "A shell would read a character of this path as its own: ";
    for (const char *name : {"a\"b", "a$b", "a`b"}) {
        const FilePath folder = home / name;
        home.file(FilePath(name) + "/Tidlo.app/Contents/MacOS/Tidlo");
        expectRefused(bundleAtPath(folder + "/Tidlo.app"), reason + folder.toStdString() + "/Tidlo.app");
    }

    setenv("XDG_CONFIG_HOME", "/a$b", 1);
    expectRefused(bundleAtPath(home / "from/Tidlo.app"), reason + "/a$b/com.tidlo.storagecleaner.conf");
    unsetenv("XDG_CONFIG_HOME");
}

} // namespace tidlo
