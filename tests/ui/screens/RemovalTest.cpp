#include "ui/screens/Removal.h"

#include "ui/UiTest.h"

#include <QFile>

namespace tidlo {

namespace {

using testing::_;

class RemovalTest : public UiTest
{
protected:
    void runFrom(const FilePath &path, const FilePath &executable)
    {
        environment.bundle = [bundle = Bundle{.path = path, .executable = executable, .identifier = std::nullopt}] {
            return bundle;
        };
    }

    void runFromNoBundle() { runFrom(home / "usr/bin/tidlo", home.file("usr/bin/tidlo")); }

    void installWith(const QByteArray &command) const
    {
        QFile file(QFile::decodeName(home.file("usr/share/tidlo/uninstall-command", 0)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(command) == command.size());
    }

    std::string scriptText()
    {
        QFile file(QFile::decodeName(environment.temporaryFolder + "/uninstall_tidlo.sh"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
    }
};

} // namespace

TEST_F(RemovalTest, OfABundleIsForTheApplicationToDo)
{
    const FilePath bundle = home / "from/Tidlo.app";
    runFrom(bundle, home.file("from/Tidlo.app/Contents/MacOS/Tidlo"));
    Removal removal(app());

    EXPECT_EQ(
        removal.message(),
        QStringLiteral("Tidlo will quit, move the app to Trash, and remove its preferences and saved setup state."));
    EXPECT_EQ(removal.action(), QStringLiteral("Uninstall completely"));
    EXPECT_CALL(*workspace, terminateApplication);
    removal.carryOut();
    EXPECT_THAT(scriptText(), testing::HasSubstr(bundle.toStdString()));
}

TEST_F(RemovalTest, OfAPackageIsByTheCommandThatItNames)
{
    runFromNoBundle();
    installWith("sudo apt remove tidlo\n");
    Removal removal(app());

    EXPECT_EQ(removal.message(),
              QStringLiteral("Tidlo was installed as a package. This command in a terminal removes it for everybody:"
                             "\n\nsudo apt remove tidlo"
                             "\n\nTidlo itself can quit and remove your preferences and caches."));
    EXPECT_EQ(removal.action(), QStringLiteral("Remove preferences"));
}

TEST_F(RemovalTest, OfACopyThatWasNotInstalledIsForThePerson)
{
    runFromNoBundle();

    EXPECT_EQ(Removal(app()).message(),
              QStringLiteral("This copy is not installed: delete it where you keep it."
                             "\n\nTidlo itself can quit and remove your preferences and caches."));
}

TEST_F(RemovalTest, FollowsWhatIsInstalledLater)
{
    runFromNoBundle();
    Removal removal(app());
    installWith("remove \x1b[2J it\n");

    EXPECT_EQ(times(removal, &Removal::changed, [&] { removal.inspect(); }), 1);

    EXPECT_TRUE(removal.message().contains(QStringLiteral("\n\nremove \\x1b[2J it\n\n")))
        << removal.message().toStdString();
}

TEST_F(RemovalTest, OutsideABundleRemovesPreferencesAndCachesAlone)
{
    runFromNoBundle();
    Removal removal(app());
    EXPECT_CALL(*workspace, start(FilePath("/bin/bash"), _));
    EXPECT_CALL(*workspace, terminateApplication);

    removal.carryOut();

    EXPECT_THAT(scriptText(), testing::HasSubstr("com.tidlo.storagecleaner"));
    EXPECT_THAT(scriptText(), testing::Not(testing::HasSubstr("bin/tidlo")));
}

} // namespace tidlo
