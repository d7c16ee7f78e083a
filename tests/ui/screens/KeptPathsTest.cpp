#include "ui/screens/KeptPaths.h"

#include "ui/UiTest.h"

#include <QFile>
#include <QUrl>

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeptPathsTest : public UiTest
{
protected:
    void keep(QLatin1StringView list, const FilePath &path) { app().defaults().addPath(list, path); }
    QList<FilePath> kept(QLatin1StringView list) { return app().defaults().paths(list).value(); }

    QString at(int row, int role) const { return paths->data(paths->index(row), role).toString(); }

    void propose(const FilePath &folder)
    {
        bool isLooked = false;
        const auto connection = QObject::connect(paths.get(), &KeptPaths::proposalChanged, [&] { isLooked = true; });
        paths->propose(QUrl::fromEncoded("file://" + folder.toPercentEncoding("/")));
        waitUntil([&] { return isLooked; });
        QObject::disconnect(connection);
    }

    std::unique_ptr<KeptPaths> paths = std::make_unique<KeptPaths>(app());
};

} // namespace

TEST_F(KeptPathsTest, AreListedWithWhatEachIsKeptFor)
{
    keep(UserDefaults::places, "/code");
    keep(UserDefaults::spared, "/caf\xe9");
    paths->inspect();
    EXPECT_EQ(paths->summary(), QStringLiteral("1 never suggested · 1 looked into as well"));
    EXPECT_EQ(at(0, KeptPaths::PathRole), QStringLiteral("/caf\\xe9"));
    EXPECT_EQ(at(0, KeptPaths::DetailRole), QStringLiteral("Never suggested: it, what is in it, and what holds it"));
    EXPECT_EQ(at(1, KeptPaths::PathRole), QStringLiteral("/code"));
    EXPECT_EQ(at(1, KeptPaths::DetailRole), QStringLiteral("Project folders are looked for in it"));
    EXPECT_EQ(paths->note(), QString());
}

TEST_F(KeptPathsTest, AreTakenBackByUntickingThemAndKeptAgainByTicking)
{
    keep(UserDefaults::spared, "/a");
    keep(UserDefaults::spared, "/b");
    paths->inspect();
    paths->toggle(0);
    EXPECT_THAT(kept(UserDefaults::spared), ElementsAre("/b"));
    EXPECT_EQ(paths->count(), 2);
    EXPECT_FALSE(paths->data(paths->index(0), KeptPaths::TickedRole).toBool());
    paths->toggle(0);
    EXPECT_THAT(kept(UserDefaults::spared), ElementsAre("/b", "/a"));
    EXPECT_TRUE(paths->data(paths->index(0), KeptPaths::TickedRole).toBool());
    paths->toggle(2);
    EXPECT_EQ(kept(UserDefaults::spared).size(), 2);
}

TEST_F(KeptPathsTest, SayThatAListCannotBeRead)
{
    keep(UserDefaults::places, "/code");
    app().defaults().set(UserDefaults::spared, QStringLiteral("relative"));
    paths->inspect();
    EXPECT_EQ(paths->count(), 1);
    EXPECT_EQ(paths->note(), QStringLiteral("Not all of it can be read from the preferences."));
}

TEST_F(KeptPathsTest, SayThatAChangeCannotBeWritten)
{
    keep(UserDefaults::spared, "/a");
    paths->inspect();
    app().defaults().set(UserDefaults::spared, QStringLiteral("relative"));
    paths->toggle(0);
    EXPECT_EQ(paths->note(), QStringLiteral("The preferences cannot be written."));
    EXPECT_TRUE(paths->data(paths->index(0), KeptPaths::TickedRole).toBool());
}

TEST_F(KeptPathsTest, AFolderIsKeptOnceThatIsAffirmed)
{
    const FilePath code = home.folder("code");
    home.link("link", code);
    propose(home / "link");
    EXPECT_EQ(paths->question(), QStringLiteral("Also look for project folders in “%1”?").arg(QString::fromUtf8(code)));
    EXPECT_EQ(paths->refusal(), QString());
    EXPECT_THAT(kept(UserDefaults::places), IsEmpty());
    paths->answer(true);
    EXPECT_EQ(paths->question(), QString());
    EXPECT_THAT(kept(UserDefaults::places), ElementsAre(code));
    EXPECT_EQ(app().phase(), ScanPhase::ready);
}

TEST_F(KeptPathsTest, AFolderMayHaveANameThatIsNoText)
{
    const FilePath folder = home.folder("caf\xe9 %41");
    propose(folder);
    paths->answer(true);
    EXPECT_THAT(kept(UserDefaults::places), ElementsAre(folder));
}

TEST_F(KeptPathsTest, AFolderIsNotKeptIfThatIsDeclined)
{
    propose(home.folder("code"));
    paths->answer(false);
    EXPECT_EQ(paths->question(), QString());
    EXPECT_THAT(kept(UserDefaults::places), IsEmpty());
}

TEST_F(KeptPathsTest, WhatCannotBeLookedIntoIsRefusedWithTheReason)
{
    propose(home.path());
    EXPECT_EQ(paths->question(), QString());
    EXPECT_EQ(paths->refusal(),
              QStringLiteral("“%1” is the home folder, or holds it.").arg(QString::fromUtf8(home.path())));
    paths->answer(true);
    EXPECT_EQ(paths->refusal(), QString());
    EXPECT_THAT(kept(UserDefaults::places), IsEmpty());
    propose(home.file("file"));
    EXPECT_EQ(paths->refusal(), QStringLiteral("“%1” is not a folder.").arg(QString::fromUtf8(home / "file")));
}

TEST_F(KeptPathsTest, WhatIsNoLocalFileIsRefused)
{
    bool isLooked = false;
    QObject::connect(paths.get(), &KeptPaths::proposalChanged, [&] { isLooked = true; });
    paths->propose(QUrl(QStringLiteral("https://example.org/code")));
    waitUntil([&] { return isLooked; });
    EXPECT_NE(paths->refusal(), QString());
}

} // namespace tidlo
