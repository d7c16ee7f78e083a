#include "ui/screens/Preferences.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

class PreferencesTest : public testing::Test
{
protected:
    QString file() const { return QFile::decodeName(home / "preferences.conf"); }

    int changesWhile(const std::function<void()> &act)
    {
        int count = 0;
        const auto connection = QObject::connect(&preferences, &Preferences::themeChanged, [&count] { ++count; });
        act();
        QObject::disconnect(connection);
        return count;
    }

    TemporaryHome home;
    UserDefaults defaults{file()};
    Preferences preferences{defaults};
};

} // namespace

TEST_F(PreferencesTest, TheThemeIsDarkWhileNoneIsStored)
{
    EXPECT_EQ(preferences.theme(), QStringLiteral("dark"));
    EXPECT_EQ(defaults.string(UserDefaults::theme, QStringLiteral("none")),
              QStringLiteral("none")); // Reading stores nothing.
}

TEST_F(PreferencesTest, AThemeIsStoredUnderItsKeyAtOnce)
{
    preferences.setTheme(QStringLiteral("light"));
    EXPECT_EQ(preferences.theme(), QStringLiteral("light"));
    EXPECT_EQ(defaults.string(QLatin1StringView("tidloTheme"), {}), QStringLiteral("light"));
    EXPECT_EQ(UserDefaults(file()).string(QLatin1StringView("tidloTheme"), {}), QStringLiteral("light"));
}

TEST_F(PreferencesTest, TheThemeThatHoldsByDefaultIsStoredWhenItIsChosen)
{
    EXPECT_EQ(changesWhile([this] { preferences.setTheme(preferences.theme()); }), 1);
    EXPECT_EQ(UserDefaults(file()).string(UserDefaults::theme, {}), QStringLiteral("dark"));
}

TEST_F(PreferencesTest, AnUnknownThemeIsKeptAsItIs)
{
    defaults.set(UserDefaults::theme, QStringLiteral("sepia"));
    EXPECT_EQ(preferences.theme(), QStringLiteral("sepia"));
    EXPECT_EQ(defaults.string(UserDefaults::theme, {}), QStringLiteral("sepia"));
}

TEST_F(PreferencesTest, EveryReaderHearsOfAChange)
{
    EXPECT_EQ(changesWhile([this] { preferences.setTheme(QStringLiteral("light")); }), 1);
    EXPECT_EQ(changesWhile([this] { defaults.set(UserDefaults::theme, QStringLiteral("system")); }), 1);

    Preferences other(defaults);
    EXPECT_EQ(changesWhile([&other] { other.setTheme(QStringLiteral("dark")); }), 1);
    EXPECT_EQ(preferences.theme(), QStringLiteral("dark"));
}

TEST_F(PreferencesTest, SetupIsCompletedOnceThatIsStored)
{
    EXPECT_FALSE(preferences.setupCompleted());
    int told = 0;
    QObject::connect(&preferences, &Preferences::setupCompletedChanged, [&told] { ++told; });

    preferences.setSetupCompleted(true);

    EXPECT_EQ(told, 1);
    EXPECT_TRUE(preferences.setupCompleted());
    EXPECT_TRUE(UserDefaults(file()).boolean(QLatin1StringView("tidlo.setup.completed")));
}

TEST_F(PreferencesTest, OtherKeysAreNoThemes)
{
    EXPECT_EQ(changesWhile([this] { defaults.set(UserDefaults::setupCompleted, true); }), 0);
}

TEST_F(PreferencesTest, ScansAreExplainedUntilThatIsSwitchedOff)
{
    EXPECT_TRUE(preferences.explanations());
    EXPECT_FALSE(QFile::exists(file())); // Reading stores nothing.
    int told = 0;
    QObject::connect(&preferences, &Preferences::explanationsChanged, [&told] { ++told; });

    preferences.setExplanations(false);

    EXPECT_EQ(told, 1);
    EXPECT_FALSE(preferences.explanations());
    EXPECT_FALSE(UserDefaults(file()).boolean(QLatin1StringView("tidlo.explanations"), true));
    preferences.setExplanations(true);
    EXPECT_TRUE(UserDefaults(file()).boolean(QLatin1StringView("tidlo.explanations")));
}

} // namespace tidlo
