#include "platform/Workspace.h"

#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tidlo {

using testing::HasSubstr;

namespace {

QByteArray contentOf(const FilePath &path)
{
    QFile file(QFile::decodeName(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.constData();
    return file.readAll();
}

class WorkspaceTest : public testing::Test
{
protected:
    WorkspaceTest()
    {
        setenv("XDG_DATA_HOME", (home / "data").constData(), 1);
        write("Tidlo.app/Contents/Info.plist", "<plist><dict><key>CFBundleExecutable</key>"
                                               "<string>Tidlo</string></dict></plist>");
    }

    ~WorkspaceTest() override { unsetenv("XDG_DATA_HOME"); }

    FilePath write(const FilePath &name, const QByteArray &content) const
    {
        const FilePath path = home.file(name, 0);
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    /// An executable that runs \a script.
    FilePath program(const FilePath &name, const QByteArray &script) const
    {
        const FilePath path = write(name, "#!/bin/sh\n" + script);
        chmod(path.constData(), 0755);
        return path;
    }

    /// A named pipe; reading from it waits until a program writes into it.
    FilePath pipe(const FilePath &name) const
    {
        const FilePath path = home / name;
        EXPECT_EQ(mkfifo(path.constData(), 0600), 0);
        return path;
    }

    std::string opened(const FilePath &bundle) const
    {
        std::string outcome = "not told";
        workspace->openApplication(
            bundle, [&](const std::optional<QString> &error) { outcome = error ? error->toStdString() : "opened"; });
        return outcome;
    }

    TemporaryHome home;
    const FilePath application = home / "Tidlo.app";
    std::unique_ptr<Workspace> workspace = makeWorkspace();
};

} // namespace

TEST_F(WorkspaceTest, StartsTheExecutableThatTheBundleNames)
{
    const FilePath told = pipe("told");
    program("Tidlo.app/Contents/MacOS/Tidlo", "echo $# > '" + told + "'");

    EXPECT_EQ(opened(application), "opened");

    EXPECT_EQ(contentOf(told), "0\n");
}

TEST_F(WorkspaceTest, OpensAndRegistersWhatLiesInAFolderWhoseNameIsNoText)
{
    const FilePath folder = home / "\xff\xfe";
    ASSERT_EQ(mkdir(folder.constData(), 0755), 0);
    const FilePath told = pipe("told");
    program("Tidlo.app/Contents/MacOS/Tidlo", "echo \"$0\" > '" + told + "'");
    write("Tidlo.app/Contents/Resources/logo.png", "a picture");
    ASSERT_EQ(std::rename(application.constData(), (folder + "/Tidlo.app").constData()), 0);

    EXPECT_EQ(opened(folder + "/Tidlo.app"), "opened");
    EXPECT_EQ(contentOf(told), folder + "/Tidlo.app/Contents/MacOS/Tidlo\n");

    workspace->registerApplication(folder + "/Tidlo.app");
    EXPECT_EQ(contentOf(home / "data/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png"), "a picture");
}

TEST_F(WorkspaceTest, StartsAProgramInASessionOfItsOwn)
{
    const FilePath told = pipe("told");
    const FilePath tool = program("tool", "read _ _ _ _ _ session _ < /proc/$$/stat\n"
                                          "test $session = $$ && echo own > '" +
                                              told + "' || echo another > '" + told + "'");

    EXPECT_EQ(workspace->start(tool, {}), std::nullopt);

    EXPECT_EQ(contentOf(told), "own\n");
}

TEST_F(WorkspaceTest, PassesArgumentsThatAreNoTexts)
{
    const FilePath told = pipe("told");
    const FilePath tool = program("tool", "echo \"$1\" > '" + told + "'");

    EXPECT_EQ(workspace->start(tool, {"\xff"}), std::nullopt);

    EXPECT_EQ(contentOf(told), "\xff\n");
}

TEST_F(WorkspaceTest, StartsALoneExecutable)
{
    const FilePath told = pipe("told");

    EXPECT_EQ(opened(program("lone", "echo lone > '" + told + "'")), "opened");

    EXPECT_EQ(contentOf(told), "lone\n");
}

TEST_F(WorkspaceTest, TellsWhyAnApplicationDoesNotStart)
{
    EXPECT_EQ(opened(application), "No such file or directory");

    write("Tidlo.app/Contents/MacOS/Tidlo", "no program");
    EXPECT_EQ(opened(application), "Permission denied");

    chmod((application + "/Contents/MacOS/Tidlo").constData(), 0755);
    EXPECT_EQ(opened(application), "Exec format error");

    EXPECT_EQ(opened(home / "missing"), "No such file or directory");
    EXPECT_EQ(opened(home.folder("folder")), "Permission denied");
}

TEST_F(WorkspaceTest, StartsAProgramThatOutlivesThisOneWithItsArguments)
{
    const FilePath told = pipe("told");
    const FilePath go = pipe("go");
    const FilePath tool = program("tool", "read word < '" + go + "'\necho \"$1|$2|$#\" > '" + told + "'");
    const ChildResult result = inChild([&] {
        return makeWorkspace()->start(tool, {"two words", "$HOME"}) == std::nullopt;
    });
    ASSERT_TRUE(result.succeeded) << result.output;

    QFile writing(QFile::decodeName(go)); // Only now, after the starting process has ended.
    EXPECT_TRUE(writing.open(QIODevice::WriteOnly) && writing.write("on\n") == 3);
    writing.close();

    EXPECT_EQ(contentOf(told), "two words|$HOME|2\n");
}

TEST_F(WorkspaceTest, TellsWhyAProgramDoesNotStart)
{
    EXPECT_EQ(workspace->start(home / "missing", {}), QStringLiteral("No such file or directory"));
}

TEST_F(WorkspaceTest, RegistersTheApplicationWithItsEntryAndIcon)
{
    write("Tidlo.app/Contents/Resources/logo.png", "a picture");

    workspace->registerApplication(application);

    const FilePath entry = home / "data/applications/com.tidlo.storagecleaner.desktop";
    EXPECT_THAT(contentOf(entry).toStdString(),
                HasSubstr("\nExec=\"" + application.toStdString() + "/Contents/MacOS/Tidlo\"\n"));
    EXPECT_EQ(contentOf(home / "data/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png"), "a picture");
}

TEST_F(WorkspaceTest, RegistersAnotherInItsPlace)
{
    write("Tidlo.app/Contents/Resources/logo.png", "a picture");
    workspace->registerApplication(application);
    write("Other.app/Contents/Resources/logo.png", "another");

    workspace->registerApplication(home / "Other.app");

    EXPECT_THAT(contentOf(home / "data/applications/com.tidlo.storagecleaner.desktop").toStdString(),
                HasSubstr("\nExec=\"" + (home / "Other.app").toStdString() + "\"\n"));
    EXPECT_EQ(contentOf(home / "data/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png"), "another");
}

TEST_F(WorkspaceTest, LeavesOutWhatItCannotRegister)
{
    home.file("data");
    const auto before = home.inventory();

    workspace->registerApplication(application);

    EXPECT_EQ(home.inventory().size(), before.size());
}

TEST_F(WorkspaceTest, WritesAnEntryThatTheDesktopAccepts)
{
    if (std::system("command -v desktop-file-validate > /dev/null") != 0)
        GTEST_SKIP() << "There is no desktop-file-validate here.";
    workspace->registerApplication(application);

    const FilePath entry = home / "data/applications/com.tidlo.storagecleaner.desktop";
    EXPECT_EQ(std::system(("desktop-file-validate " + entry).constData()), 0);
}

} // namespace tidlo
