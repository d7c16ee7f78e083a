#include "platform/linux/SettingsPortal.h"

#include "platform/desktop/PrivateBus.h"
#include "platform/desktop/StandInPortal.h"
#include "support/PrintQt.h"
#include "support/WaitUntil.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <gmock/gmock.h>

#include <climits>
#include <optional>

namespace tidlo {

namespace {

using namespace std::chrono_literals;

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr uint noPreference = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

class SettingsPortalTest : public testing::Test
{
protected:
    void follow(std::chrono::milliseconds patience = 10min)
    {
        settings.emplace(
            bus.connection(QStringLiteral("program")), [this](const DesktopWishes &now) { told.append(now); },
            patience);
    }

    /// Asks the portal another question, and waits until it has answered, or \a patience is over.
    void waitForAnswer(std::chrono::milliseconds patience)
    {
        const QDBusMessage message = QDBusMessage::createMethodCall(
            portal.name(), QStringLiteral("/org/freedesktop/portal/desktop"), QString(), QStringLiteral("Anything"));
        const QDBusPendingCallWatcher question(
            bus.connection(QStringLiteral("program")).asyncCall(message, static_cast<int>(patience.count())));
        waitUntil([&] { return question.isFinished(); });
        QCoreApplication::processEvents();
    }

    /// Waits until everything that the portal has sent so far has arrived.
    void waitForAll() { waitForAnswer(10min); }

    QList<std::optional<bool>> toldOfDark() const
    {
        QList<std::optional<bool>> all;
        for (const DesktopWishes &wishes : told)
            all.append(wishes.isDark);
        return all;
    }

    void waitForTold(qsizetype count)
    {
        waitUntil([this, count] { return told.size() >= count; });
    }

    PrivateBus bus;
    StandInPortal portal{bus.connection(QStringLiteral("portal"))};
    QList<DesktopWishes> told;
    std::optional<SettingsPortal> settings;
};

} // namespace

using testing::ElementsAre;
using testing::Optional;

TEST_F(SettingsPortalTest, TellsOnceWhichSchemeIsWanted)
{
    portal.set(appearance, colorScheme, dark);
    portal.appear();

    follow();
    EXPECT_THAT(toldOfDark(), ElementsAre()); // The call does not wait for the answer.
    waitForAll();
    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, TellsEachChange)
{
    portal.set(appearance, colorScheme, dark);
    portal.appear();
    follow();
    waitForAll();

    for (const uint scheme : {light, light, noPreference, dark})
        portal.tellChange(appearance, colorScheme, scheme);
    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true), Optional(false), std::nullopt, Optional(true)));
}

TEST_F(SettingsPortalTest, TellsAChangeOfASettingThatWasNotThereBefore)
{
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });

    portal.tellChange(appearance, colorScheme, dark);
    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, TellsNothingWhereNeitherSchemeIsWanted)
{
    portal.set(appearance, colorScheme, noPreference);
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });

    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre());
}

TEST_F(SettingsPortalTest, WhatIsOfAnotherTypeOrUnknownCountsAsNoWish)
{
    portal.set(appearance, colorScheme, dark);
    portal.appear();
    follow();
    waitForAll();
    const QVariantList nonsense{QStringLiteral("dark"),
                                2,
                                true,
                                2.0,
                                uchar(2),
                                uint(3),
                                UINT_MAX,
                                QByteArray("light"),
                                QStringList{QStringLiteral("light")},
                                QVariantMap{{QStringLiteral("a"), light}},
                                QVariant::fromValue(QDBusObjectPath(QStringLiteral("/light")))};

    for (const QVariant &value : nonsense) {
        portal.tellChange(appearance, colorScheme, dark);
        waitForAll();
        EXPECT_EQ(told.constLast().isDark, true);

        portal.tellChange(appearance, colorScheme, value);
        waitForAll();
        EXPECT_EQ(told.constLast(), DesktopWishes()) << value.typeName();
    }
}

TEST_F(SettingsPortalTest, AnAnswerOfAnotherTypeCountsAsNone)
{
    portal.set(appearance, colorScheme, QStringList{QStringLiteral("dark")});
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });

    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre());
}

TEST_F(SettingsPortalTest, AnAnswerOfAnotherShapeCountsAsNone)
{
    portal.appear();
    for (const QVariantList &shape : {QVariantList(), QVariantList{dark}, QVariantList{QStringLiteral("dark"), dark}}) {
        portal.setEveryAnswer(shape);
        follow();
        waitUntil([this] { return portal.questions() > 0; });

        waitForAll();

        EXPECT_THAT(toldOfDark(), ElementsAre());
    }
}

TEST_F(SettingsPortalTest, TakesAValueHoweverOftenItIsBoxed)
{
    QVariant value = dark;
    for (int i = 0; i < 20; ++i)
        value = QVariant::fromValue(QDBusVariant(value));
    portal.set(appearance, colorScheme, value);
    portal.appear();

    follow();
    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, PassesOverChangesOfOtherSettingsAndOfAnotherShape)
{
    portal.set(appearance, colorScheme, dark);
    portal.appear();
    follow();
    waitForAll();
    const QVariant boxedLight = QVariant::fromValue(QDBusVariant(light));

    portal.tellChange(appearance, QStringLiteral("accent-color"), light);
    portal.tellChange(QStringLiteral("org.gnome.desktop.interface"), colorScheme, light);
    portal.tellChange({});
    portal.tellChange({appearance, colorScheme});
    portal.tellChange({appearance, colorScheme, light});
    portal.tellChange({appearance, colorScheme, boxedLight, boxedLight});
    portal.tellChange({boxedLight, colorScheme, boxedLight});
    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, PassesOverWhoIsNotThePortal)
{
    StandInPortal stranger(bus.connection(QStringLiteral("stranger")));
    portal.set(appearance, colorScheme, dark);
    portal.appear();
    follow();
    waitForAll();

    stranger.tellChange(appearance, colorScheme, light);
    waitForAll(); // The signal of the stranger has reached the bus before the question.

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, WhateverSettingSaysSoReducesMotionOrRaisesContrast)
{
    struct Case
    {
        QString group;
        QString key;
        DesktopWishes wished;
        QVariantList wishing;
        QVariantList others; // Or with another type.
    };
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });
    portal.tellChange(appearance, colorScheme, dark); // From now on there is always at least one report.
    waitForAll();
    const DesktopWishes reduced{.isDark = true, .reducedMotion = true};
    const DesktopWishes contrasting{.isDark = true, .higherContrast = true};
    for (const Case &row :
         {Case{appearance,
               QStringLiteral("reduced-motion"),
               reduced,
               {1U},
               {0U, 2U, UINT_MAX, 1, true, QStringLiteral("1")}},
          Case{QStringLiteral("org.gnome.desktop.interface"),
               QStringLiteral("enable-animations"),
               reduced,
               {false},
               {true, 0U, 0, 0.0, QStringLiteral("false"), QStringList()}},
          Case{QStringLiteral("org.kde.kdeglobals.KDE"),
               QStringLiteral("AnimationDurationFactor"),
               reduced,
               {QStringLiteral("0"), QStringLiteral("0.0"), QString(32, u'0'), 0.0},
               {QStringLiteral("1"), QStringLiteral("0.5"), QString(), QStringLiteral("none"), QStringLiteral("nan"),
                QString(33, u'0'), 1.0, qQNaN(), 0U, false, QStringList(QStringLiteral("0"))}},
          Case{appearance, QStringLiteral("contrast"), contrasting, {1U}, {0U, 2U, 1, true, QStringLiteral("1")}},
          Case{QStringLiteral("org.gnome.desktop.a11y.interface"),
               QStringLiteral("high-contrast"),
               contrasting,
               {true},
               {false, 1U, 1, QStringLiteral("true")}}}) {
        for (const QVariant &value : row.wishing) {
            portal.tellChange(row.group, row.key, value);
            waitForAll();
            EXPECT_EQ(told.constLast(), row.wished) << row.key.toStdString();
            for (const QVariant &other : row.others) {
                portal.tellChange(row.group, row.key, value);
                portal.tellChange(row.group, row.key, other);
                waitForAll();
                EXPECT_EQ(told.constLast(), DesktopWishes{.isDark = true})
                    << row.key.toStdString() << " " << other.typeName() << " " << other.toString().toStdString();
            }
        }
    }
}

TEST_F(SettingsPortalTest, TextsAreAtMostHalfAsLargeAgainAndNeverSmaller)
{
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });
    portal.tellChange(appearance, colorScheme, dark);
    waitForAll();
    const std::vector<std::pair<QVariant, double>> scales{
        {1.25, 1.25}, {1.5, 1.5},    {1.51, 1.5},  {1e300, 1.5}, {qInf(), 1.5},
        {0.5, 1},     {-2.0, 1},     {qQNaN(), 1}, {1.25, 1.25}, {QStringLiteral("1.25"), 1},
        {2U, 1},      {1.125, 1.125}};
    for (const auto &[value, scale] : scales) {
        portal.tellChange(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("text-scaling-factor"), value);
        waitForAll();
        EXPECT_EQ(told.constLast().textScale, scale) << value.toString().toStdString();
    }
}

TEST_F(SettingsPortalTest, AnswersOfAllItsQuestionsCountTogether)
{
    portal.set(appearance, colorScheme, light);
    portal.set(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"), false);
    portal.appear();

    follow();
    waitUntil([this] { return portal.questions() >= 7; });
    waitForAll();

    EXPECT_EQ(told.constLast(), (DesktopWishes{.isDark = false, .reducedMotion = true}));
}

TEST_F(SettingsPortalTest, AsksAPortalThatComesLater)
{
    portal.set(appearance, colorScheme, dark);
    follow();

    portal.appear();
    waitForTold(1);

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true)));
}

TEST_F(SettingsPortalTest, WhatWasToldHoldsUntilAnotherPortalTellsOtherwise)
{
    StandInPortal other(bus.connection(QStringLiteral("other")));
    other.set(appearance, colorScheme, light);
    portal.set(appearance, colorScheme, dark);
    portal.appear();
    follow();
    waitForTold(1);

    portal.vanish();
    other.appear();
    waitForTold(2);
    portal.tellChange(appearance, colorScheme, dark);
    other.tellChange(appearance, colorScheme, noPreference);
    waitForTold(3);

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true), Optional(false), std::nullopt));
}

TEST_F(SettingsPortalTest, AnAnswerThatTakesTooLongCountsAsNone)
{
    // Given a portal that does not answer, and an expired wait
    portal.set(appearance, colorScheme, dark);
    portal.hold(true);
    portal.appear();
    follow(1ms);
    waitForAnswer(100ms);

    // When it does answer later
    portal.hold(false);
    waitForAll();

    EXPECT_THAT(toldOfDark(), ElementsAre());
}

TEST_F(SettingsPortalTest, GoesWhileItsQuestionsAreStillOpen)
{
    portal.set(appearance, colorScheme, dark);
    portal.hold(true);
    portal.appear();
    follow();
    waitUntil([this] { return portal.questions() > 0; });

    settings.reset();
    portal.hold(false);
    follow();
    waitForTold(1);

    EXPECT_THAT(toldOfDark(), ElementsAre(Optional(true))); // Only from the second one.
}

TEST_F(SettingsPortalTest, TellsNothingWhereThereIsNoBus)
{
    settings.emplace(QDBusConnection(QStringLiteral("none")), [this](const DesktopWishes &now) { told.append(now); });

    QCoreApplication::processEvents();
    EXPECT_THAT(toldOfDark(), ElementsAre());
}

} // namespace tidlo
