#include "platform/UserDefaults.h"

#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

#include <array>
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace tidlo {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

class UserDefaultsTest : public testing::Test
{
protected:
    UserDefaultsTest() { chmod(home.path().constData(), 0755); }

    void writeFile(const QByteArray &content) const
    {
        QFile target(file);
        EXPECT_TRUE(target.open(QIODevice::WriteOnly) && target.write(content) == content.size());
    }

    static std::string contentOf(const QString &path)
    {
        QFile source(path);
        return source.open(QIODevice::ReadOnly) ? source.readAll().toStdString() : "missing";
    }

    std::string content() const { return contentOf(file); }

    static QString theme(const UserDefaults &defaults)
    {
        return defaults.string(UserDefaults::theme, QStringLiteral("dark"));
    }

    static void expectDefaults(const UserDefaults &defaults)
    {
        EXPECT_EQ(theme(defaults), QStringLiteral("dark"));
        EXPECT_FALSE(defaults.boolean(UserDefaults::setupCompleted));
    }

    /// Sets both, which must be in force afterwards whether or not they could be written.
    static void set(UserDefaults &defaults)
    {
        defaults.set(UserDefaults::theme, QStringLiteral("light"));
        defaults.set(UserDefaults::setupCompleted, true);
        expectSet(defaults);
    }

    static void expectSet(const UserDefaults &defaults)
    {
        EXPECT_EQ(theme(defaults), QStringLiteral("light"));
        EXPECT_TRUE(defaults.boolean(UserDefaults::setupCompleted));
    }

    /// Whether a newly started program finds the values that were set.
    bool isFoundByAnother() const
    {
        return inChild([this] {
                   expectSet(UserDefaults(file));
                   return !HasFailure();
               })
            .succeeded;
    }

    TemporaryHome home;
    const QString file = QString::fromUtf8(home / "preferences.conf");
};

} // namespace

TEST_F(UserDefaultsTest, HasTheTwoKeysAndTheirDefaults)
{
    EXPECT_EQ(UserDefaults::theme, QStringLiteral("tidloTheme"));
    EXPECT_EQ(UserDefaults::setupCompleted, QStringLiteral("tidlo.setup.completed"));
    expectDefaults(UserDefaults(file));
}

TEST_F(UserDefaultsTest, WritesAtOnceWhatTheNextProgramFinds)
{
    UserDefaults defaults(file);

    set(defaults);

    EXPECT_TRUE(isFoundByAnother());
    EXPECT_THAT(content(), HasSubstr("tidloTheme=light\n"));
    EXPECT_THAT(content(), HasSubstr("tidlo.setup.completed=true\n"));
}

TEST_F(UserDefaultsTest, TellsOfEverySettingOnceItHolds)
{
    UserDefaults defaults(file);
    std::vector<std::string> told;
    QObject::connect(&defaults, &UserDefaults::changed, [&](const QString &key) {
        told.push_back(key.toStdString() + " " + theme(defaults).toStdString());
    });

    defaults.set(UserDefaults::theme, QStringLiteral("light"));
    defaults.set(UserDefaults::theme, QStringLiteral("light"));
    defaults.set(UserDefaults::setupCompleted, true);

    EXPECT_THAT(told, ElementsAre("tidloTheme light", "tidloTheme light", "tidlo.setup.completed light"));
}

TEST_F(UserDefaultsTest, ReachesEveryReaderAtOnce)
{
    UserDefaults writer(file);
    const UserDefaults reader(file);
    expectDefaults(reader);

    set(writer);

    expectSet(reader);
}

TEST_F(UserDefaultsTest, CanBeSetBack)
{
    UserDefaults defaults(file);
    set(defaults);

    defaults.set(UserDefaults::setupCompleted, false);

    EXPECT_FALSE(defaults.boolean(UserDefaults::setupCompleted));
    EXPECT_FALSE(isFoundByAnother());
}

TEST_F(UserDefaultsTest, StoresNothingUnderAKeyThatIsTakenAway)
{
    UserDefaults defaults(file);
    set(defaults);

    defaults.set(UserDefaults::theme, {});

    EXPECT_EQ(theme(defaults), QStringLiteral("dark"));
    EXPECT_EQ(content(), "[General]\ntidlo.setup.completed=true\n");
    defaults.set(UserDefaults::setupCompleted, {});
    expectDefaults(defaults);
    expectDefaults(UserDefaults(file));
}

TEST_F(UserDefaultsTest, KeepsWhatItDoesNotKnow)
{
    writeFile("[General]\nfuture=1\n\n[Group]\nkey=value\n");
    UserDefaults defaults(file);

    set(defaults);

    EXPECT_THAT(content(), HasSubstr("future=1"));
    EXPECT_THAT(content(), HasSubstr("[Group]\nkey=value"));
}

TEST_F(UserDefaultsTest, HasItsDefaultsWhereTheFileIsOfNoUse)
{
    const QList<QByteArray> useless{
        "",
        "\n\n",
        "no preferences at all",
        "[General]\ntidloTheme\n",
        "[Other]\ntidloTheme=light\ntidlo.setup.completed=true\n",
        "[General]\ntidloTheme=@Variant(\\0\\0\\0\x7f)\ntidlo.setup.completed=@Invalid()\n",
        "[General]\ntidloTheme=light, system\ntidlo.setup.completed=perhaps\n",
        "[General]\ntidlo.setup.completed=\n",
        QByteArray(100'000, '\0'),
        QByteArray(100'000, '\xff'),
        QByteArray(100'000, '['),
    };
    for (const QByteArray &damage : useless) {
        SCOPED_TRACE(damage.left(60).toStdString());
        QFile::remove(file);
        writeFile(damage);
        const ChildResult result = inChild([this] { // In a child, since a program caches what it has read.
            UserDefaults defaults(file);
            expectDefaults(defaults);
            set(defaults);
            return !HasFailure();
        });
        EXPECT_TRUE(result.succeeded) << result.output;
        EXPECT_TRUE(isFoundByAnother());
    }
}

TEST_F(UserDefaultsTest, TakesAnyTextAsATheme)
{
    writeFile("[General]\ntidloTheme=purple\n");

    EXPECT_EQ(theme(UserDefaults(file)), QStringLiteral("purple"));
}

TEST_F(UserDefaultsTest, HoldsWhatWasSetWhereNothingCanBeWritten)
{
    writeFile("[General]\ntidloTheme=system\n");
    const std::string before = content();
    chmod(home.path().constData(), 0555);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        UserDefaults defaults(file);
        EXPECT_EQ(theme(defaults), QStringLiteral("system"));
        set(defaults);
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_EQ(content(), before);
}

TEST_F(UserDefaultsTest, HasItsDefaultsWhereTheFileCannotBeReadOrIsNone)
{
    writeFile("[General]\ntidloTheme=light\n");
    chmod((home / "preferences.conf").constData(), 0);
    home.folder("folder.conf");
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        UserDefaults unreadable(file);
        UserDefaults folder(QString::fromUtf8(home / "folder.conf"));
        UserDefaults nowhere(QString::fromUtf8(home / "preferences.conf/file"));
        for (UserDefaults *defaults : {&unreadable, &folder, &nowhere}) {
            expectDefaults(*defaults);
            set(*defaults);
        }
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(UserDefaultsTest, WaitsForNoLockThatAKilledProgramLeft)
{
    home.file("preferences.conf.lock", 0);
    UserDefaults defaults(file);

    set(defaults);

    EXPECT_TRUE(isFoundByAnother());
    EXPECT_TRUE(home.inventory().contains("preferences.conf.lock")); // If it had been waited for, it would have been
                                                                     // removed by now.
}

TEST_F(UserDefaultsTest, LeavesNothingButTheFile)
{
    set(*std::make_unique<UserDefaults>(QString::fromUtf8(home / "new/folder/preferences.conf")));

    EXPECT_THAT(home.inventory(),
                UnorderedElementsAre(Key("."), Key("new"), Key("new/folder"), Key("new/folder/preferences.conf")));
}

TEST_F(UserDefaultsTest, KeepsALinkToWhereTheFileTrulyLies)
{
    home.link("preferences.conf", home.file("elsewhere/file", 0));

    set(*std::make_unique<UserDefaults>(file));

    EXPECT_TRUE(S_ISLNK(home.inventory().at("preferences.conf").mode));
    EXPECT_THAT(contentOf(QString::fromUtf8(home / "elsewhere/file")), HasSubstr("tidloTheme=light"));
}

TEST_F(UserDefaultsTest, KeepsWhatAnotherProgramSetMeanwhile)
{
    UserDefaults defaults(file);
    inChild([this] {
        UserDefaults(file).set(UserDefaults::setupCompleted, true);
        return true;
    });

    defaults.set(UserDefaults::theme, QStringLiteral("light"));

    EXPECT_TRUE(isFoundByAnother());
    expectSet(defaults);
}

TEST_F(UserDefaultsTest, IsWholeWheneverTheProgramIsKilled)
{
    home.folder("drafts");
    UserDefaults(file).set(UserDefaults::theme, QStringLiteral("dark"));
    for (int turn = 0; turn < 12; ++turn) {
        std::array<int, 2> told{};
        ASSERT_EQ(pipe(told.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            setenv("TMPDIR", (home / "drafts").constData(), 1);
            UserDefaults defaults(file);
            for (bool isDark = true; write(told[1], "x", 1) == 1; isDark = !isDark)
                defaults.set(UserDefaults::theme, isDark ? QStringLiteral("dark") : QStringLiteral("light"));
        }
        for (int count = 0; count <= turn; ++count) {
            char byte = 0;
            ASSERT_EQ(read(told[0], &byte, 1), 1);
        }
        kill(child, SIGKILL); // At any point of the next write.
        waitpid(child, nullptr, 0);
        close(told[0]);
        close(told[1]);

        ASSERT_THAT(content(), AnyOf("[General]\ntidloTheme=dark\n", "[General]\ntidloTheme=light\n")) << turn;
    }
}

TEST_F(UserDefaultsTest, KeepsTheOldFileWhereTheNewOneCannotBeDrafted)
{
    writeFile("other=kept\n");
    const ChildResult result = inChild([&] {
        setenv("TMPDIR", home.file("no folder").constData(), 1);
        UserDefaults defaults(file);
        set(defaults);
        EXPECT_EQ(theme(defaults), QStringLiteral("light"));
        return !HasFailure();
    });
    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_EQ(content(), "other=kept\n");
}

TEST_F(UserDefaultsTest, ReplacesNoFileThatItCannotRead)
{
    writeFile("other=kept\n");
    chmod(file.toLocal8Bit().constData(), 0);
    chmod(QFile::encodeName(QFileInfo(file).path()).constData(), 0777);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        UserDefaults defaults(file);
        set(defaults);
        EXPECT_EQ(theme(defaults), QStringLiteral("light"));
        return !HasFailure();
    });
    chmod(file.toLocal8Bit().constData(), 0600);
    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_EQ(content(), "other=kept\n");
}

TEST_F(UserDefaultsTest, KeepListsOfPathsOfAnyBytes)
{
    UserDefaults defaults(file);
    EXPECT_THAT(defaults.paths(UserDefaults::spared).value(), IsEmpty());
    for (const char *path : {"/plain", "/with space", "/caf\xe9", "/100%", "/new\nline", "/a,b;c=\"d\"", "/@Invalid()"})
        EXPECT_TRUE(defaults.addPath(UserDefaults::spared, path));
    EXPECT_TRUE(defaults.addPath(UserDefaults::spared, "/plain"));
    EXPECT_TRUE(defaults.removePath(UserDefaults::spared, "/100%"));
    EXPECT_THAT(UserDefaults(file).paths(UserDefaults::spared).value(),
                ElementsAre("/plain", "/with space", "/caf\xe9", "/new\nline", "/a,b;c=\"d\"", "/@Invalid()"));
    EXPECT_THAT(defaults.paths(UserDefaults::places).value(), IsEmpty());
}

TEST_F(UserDefaultsTest, AnEmptyListIsNotThere)
{
    UserDefaults defaults(file);
    EXPECT_TRUE(defaults.addPath(UserDefaults::places, "/a"));
    EXPECT_THAT(content(), HasSubstr("tidlo.places"));
    EXPECT_TRUE(defaults.removePath(UserDefaults::places, "/a"));
    EXPECT_THAT(content(), Not(HasSubstr("tidlo.places")));
}

TEST_F(UserDefaultsTest, AListIsAsAnyProgramKeptItLast)
{
    UserDefaults window(file);
    window.set(UserDefaults::theme, QStringLiteral("light"));
    EXPECT_TRUE(window.addPath(UserDefaults::spared, "/a"));
    UserDefaults command(file);
    EXPECT_TRUE(command.addPath(UserDefaults::spared, "/b"));
    EXPECT_TRUE(command.removePath(UserDefaults::spared, "/a"));
    EXPECT_THAT(window.paths(UserDefaults::spared).value(), ElementsAre("/b"));
    window.set(UserDefaults::theme, QStringLiteral("dark"));
    EXPECT_THAT(UserDefaults(file).paths(UserDefaults::spared).value(), ElementsAre("/b"));
    EXPECT_EQ(theme(UserDefaults(file)), QStringLiteral("dark"));
}

TEST_F(UserDefaultsTest, ListsThatManyProgramsChangeAtOnceLoseNothing)
{
    constexpr int programs = 8;
    constexpr int each = 20;
    std::vector<pid_t> children;
    for (int program = 0; program < programs; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            UserDefaults defaults(file);
            bool isKept = true;
            for (int number = 0; number < each; ++number) {
                const FilePath path = '/' + FilePath::number(program) + '/' + FilePath::number(number);
                while (!defaults.addPath(UserDefaults::spared, path)) {
                    isKept = false; // Only the lock may have been missed.
                }
                defaults.set(UserDefaults::theme, QString::number(number));
            }
            _exit(isKept ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    EXPECT_EQ(UserDefaults(file).paths(UserDefaults::spared).value().size(), programs * each);
}

TEST_F(UserDefaultsTest, AListThatCannotBeReadNeverCountsAsEmpty)
{
    for (const char *list : {"relative", "/a%zz", "/a  /b", "/a%00", "", "[1, 2]", "/\xff"}) {
        writeFile(QByteArray("[General]\ntidlo.spared=") + list + "\n");
        UserDefaults defaults(file);
        EXPECT_EQ(defaults.paths(UserDefaults::spared), std::nullopt) << list;
        EXPECT_FALSE(defaults.addPath(UserDefaults::spared, "/b")) << list;
        EXPECT_EQ(UserDefaults(file).paths(UserDefaults::spared), std::nullopt) << "It is as it was: " << list;
    }
    writeFile("[General]\ntidlo.spared\n");
    EXPECT_EQ(UserDefaults(file).paths(UserDefaults::spared), std::nullopt);
}

TEST_F(UserDefaultsTest, AListInADamagedFileThatNeverHeldOneIsEmpty)
{
    writeFile("garbage\n");
    EXPECT_THAT(UserDefaults(file).paths(UserDefaults::spared).value(), IsEmpty());
}

TEST_F(UserDefaultsTest, AListInAFileThatCannotBeOpenedCannotBeRead)
{
    UserDefaults(file).addPath(UserDefaults::spared, "/a");
    const ChildResult result = inChild([this] {
        chmod(QFile::encodeName(file).constData(), 0);
        const bool isOrdinaryUser = geteuid() != 0 || becomeNobody();
        UserDefaults defaults(file);
        EXPECT_EQ(defaults.paths(UserDefaults::spared), std::nullopt);
        EXPECT_FALSE(defaults.addPath(UserDefaults::spared, "/b"));
        return isOrdinaryUser && !HasFailure();
    });
    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(UserDefaultsTest, AListThatWouldBeTooLongIsNotKept)
{
    UserDefaults defaults(file);
    EXPECT_TRUE(defaults.addPath(UserDefaults::spared, '/' + FilePath(900'000, 'x')));
    EXPECT_FALSE(defaults.addPath(UserDefaults::spared, '/' + FilePath(200'000, 'y')));
    EXPECT_EQ(defaults.paths(UserDefaults::spared).value().size(), 1);
}

TEST_F(UserDefaultsTest, AListInAFolderThatCannotBeEnteredCannotBeRead)
{
    UserDefaults(file).addPath(UserDefaults::spared, "/a");
    const ChildResult result = inChild([this] {
        chmod(QFile::encodeName(QFileInfo(file).absolutePath()).constData(), 0);
        const bool isOrdinaryUser = geteuid() != 0 || becomeNobody();
        EXPECT_EQ(UserDefaults(file).paths(UserDefaults::spared), std::nullopt);
        return isOrdinaryUser && !HasFailure();
    });
    chmod(QFile::encodeName(QFileInfo(file).absolutePath()).constData(), 0700);
    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(UserDefaultsTest, AListThatCannotBeReadIsNotLostWithASetting)
{
    const std::string damaged = "[General]\ntidlo.spared /a\n";
    writeFile(damaged.c_str());
    UserDefaults defaults(file);
    set(defaults);
    EXPECT_EQ(content(), damaged);
    EXPECT_EQ(theme(defaults), QStringLiteral("light")); // A value that was set stays in force until the program ends.
}

TEST_F(UserDefaultsTest, AListIsNotTakenForThePathThatHasItsName)
{
    UserDefaults defaults(file);
    EXPECT_TRUE(defaults.addPath(UserDefaults::places, "/tmp/tidlo.spared"));
    EXPECT_THAT(defaults.paths(UserDefaults::spared).value(), IsEmpty());
    EXPECT_TRUE(defaults.addPath(UserDefaults::spared, "/a"));
}

TEST_F(UserDefaultsTest, AnAbsentTruthValueIsWhatItIsByDefault)
{
    UserDefaults defaults(file);
    EXPECT_TRUE(defaults.boolean(UserDefaults::explanations, true));
    EXPECT_FALSE(defaults.boolean(UserDefaults::explanations, false));
    defaults.set(UserDefaults::explanations, false);
    EXPECT_FALSE(UserDefaults(file).boolean(UserDefaults::explanations, true));
    defaults.set(UserDefaults::explanations, true);
    EXPECT_TRUE(UserDefaults(file).boolean(UserDefaults::explanations, false));
    writeFile("garbage\n");
    EXPECT_TRUE(UserDefaults(file).boolean(UserDefaults::explanations, true));
}

TEST_F(UserDefaultsTest, ATruthValueThatCannotBeReadIsFalse)
{
    for (const char *line : {"tidlo.explanations=maybe", "tidlo.explanations=", "tidlo.explanations"}) {
        writeFile(QByteArray("[General]\n") + line + "\n");
        EXPECT_FALSE(UserDefaults(file).boolean(UserDefaults::explanations, true)) << line;
    }
    const ChildResult result = inChild([this] {
        chmod(QFile::encodeName(file).constData(), 0);
        const bool isOrdinaryUser = geteuid() != 0 || becomeNobody();
        UserDefaults defaults(file);
        EXPECT_FALSE(defaults.boolean(UserDefaults::explanations, true));
        defaults.set(UserDefaults::explanations, true);
        EXPECT_TRUE(defaults.boolean(UserDefaults::explanations, true));
        return isOrdinaryUser && !HasFailure();
    });
    EXPECT_TRUE(result.succeeded) << result.output;
}

} // namespace tidlo
