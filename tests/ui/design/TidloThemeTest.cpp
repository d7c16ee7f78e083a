#include "ui/design/TidloTheme.h"

#include "support/PrintQt.h"
#include "support/WaitUntil.h"
#include "ui/design/Contrast.h"

#include <QGuiApplication>
#include <QPalette>

#include <gmock/gmock.h>

#include <array>
#include <map>

namespace tidlo {

namespace {

/// Components and opacity from 0 to 1.
using Rgba = std::array<double, 4>;

constexpr Rgba rgb(double red, double green, double blue)
{
    return {red, green, blue, 1};
}

constexpr Rgba bytes(int red, int green, int blue)
{
    return {red / 255.0, green / 255.0, blue / 255.0, 1};
}

constexpr Rgba white = rgb(1, 1, 1);

constexpr Rgba whiteAt(double opacity)
{
    return {1, 1, 1, opacity};
}

constexpr Rgba blackAt(double opacity)
{
    return {0, 0, 0, opacity};
}

struct NamedColor
{
    const char *name;
    Rgba dark;
    Rgba light;
};

constexpr std::array colors{
    NamedColor{"blue", rgb(0.388, 0.682, 0.718), rgb(0.388, 0.682, 0.718)},
    NamedColor{"green", rgb(0.502, 0.741, 0.769), rgb(0.502, 0.741, 0.769)},
    NamedColor{"red", rgb(1.0, 0.35, 0.39), rgb(1.0, 0.35, 0.39)},
    NamedColor{"cardSurface", rgb(0.122, 0.192, 0.212), white},
    NamedColor{"controlSurface", rgb(0.098, 0.153, 0.169), rgb(0.878, 0.929, 0.941)},
    NamedColor{"mutedText", rgb(0.51, 0.612, 0.624), rgb(0.255, 0.361, 0.388)},
    NamedColor{"controlBorder", whiteAt(0.12), rgb(0.737, 0.824, 0.839)},
    NamedColor{"windowBackground", rgb(0.055, 0.086, 0.094), rgb(0.953, 0.973, 0.976)},
    NamedColor{"topBarBackground", rgb(0.035, 0.055, 0.063), white},
    NamedColor{"primaryText", rgb(0.89, 0.91, 0.918), rgb(0.059, 0.118, 0.129)},
    NamedColor{"railBackground", rgb(0.035, 0.055, 0.063), rgb(0.898, 0.937, 0.945)},
    NamedColor{"railSymbol", whiteAt(0.68), rgb(0.255, 0.361, 0.388)},
    NamedColor{"sidebarBackground", rgb(0.071, 0.11, 0.122), rgb(0.918, 0.949, 0.957)},
    NamedColor{"systemBlue", bytes(10, 132, 255), bytes(0, 122, 255)},
    NamedColor{"systemMint", bytes(99, 230, 226), bytes(0, 199, 190)},
    NamedColor{"systemPurple", bytes(191, 90, 242), bytes(175, 82, 222)},
    NamedColor{"systemYellow", bytes(255, 214, 10), bytes(255, 204, 0)},
    NamedColor{"systemOrange", bytes(255, 159, 10), bytes(255, 149, 0)},
    NamedColor{"systemRed", bytes(255, 69, 58), bytes(255, 59, 48)},
    NamedColor{"systemGray", bytes(152, 152, 157), bytes(142, 142, 147)},
    NamedColor{"secondaryLabel", whiteAt(0.55), blackAt(0.5)},
    NamedColor{"divider", whiteAt(0.1), blackAt(0.1)},
};

void expectColor(const QColor &color, const Rgba &expected, const char *name)
{
    constexpr double step = 1.0 / 65535; // A colour stores 16 bits for each component.
    EXPECT_NEAR(color.redF(), expected[0], step) << name;
    EXPECT_NEAR(color.greenF(), expected[1], step) << name;
    EXPECT_NEAR(color.blueF(), expected[2], step) << name;
    EXPECT_NEAR(color.alphaF(), expected[3], step) << name;
}

void expectScheme(const TidloTheme &theme, Rgba NamedColor::*scheme)
{
    for (const NamedColor &color : colors)
        expectColor(theme.property(color.name).value<QColor>(), color.*scheme, color.name);
}

class TidloThemeTest : public testing::Test
{
protected:
    ~TidloThemeTest() override { QGuiApplication::setPalette(QPalette()); }

    /// Switches the scheme of the whole desktop.
    static void setSystem(ColorScheme scheme)
    {
        QPalette palette;
        const bool isDark = scheme == ColorScheme::dark;
        palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
        QGuiApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

    void waitForDarkness(double darkness)
    {
        waitUntil([&] { return theme.darkness() == darkness; });
    }

    /// How often \a signal is emitted while \a act runs.
    template <typename Signal, typename Act>
    int times(Signal signal, Act act)
    {
        int count = 0;
        const auto connection = QObject::connect(&theme, signal, [&count] { ++count; });
        act();
        QObject::disconnect(connection);
        return count;
    }

    TidloTheme theme;
};

} // namespace

TEST_F(TidloThemeTest, EveryColorOfTheDarkScheme)
{
    theme.setPreference(QStringLiteral("dark"));
    expectScheme(theme, &NamedColor::dark);
}

TEST_F(TidloThemeTest, EveryColorOfTheLightScheme)
{
    theme.setPreference(QStringLiteral("light"));
    expectScheme(theme, &NamedColor::light);
}

TEST_F(TidloThemeTest, IsDarkBeforeAnythingIsStored)
{
    EXPECT_EQ(theme.preference(), QStringLiteral("dark"));
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 1);
    expectScheme(theme, &NamedColor::dark);
}

TEST_F(TidloThemeTest, TellsHowThePreferenceIsCalledAndWhichFollows)
{
    theme.setPreference(QStringLiteral("light"));
    EXPECT_EQ(theme.label(), QStringLiteral("Light"));
    EXPECT_EQ(theme.symbol(), QStringLiteral("sun.max.fill"));
    EXPECT_EQ(theme.nextPreference(), QStringLiteral("system"));
}

TEST_F(TidloThemeTest, AnUnknownPreferenceIsKeptAsItIs)
{
    theme.setPreference(QStringLiteral("sepia"));
    EXPECT_EQ(theme.preference(), QStringLiteral("sepia"));
    EXPECT_EQ(theme.label(), QStringLiteral("System"));
}

TEST_F(TidloThemeTest, TheFirstPreferenceIsInForceAtOnce)
{
    theme.setPreference(QStringLiteral("light"));
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 0);
}

TEST_F(TidloThemeTest, ALaterOneIsReachedByAMotion)
{
    // Given the dark scheme
    theme.setPreference(QStringLiteral("dark"));

    // When the light one is chosen
    QList<double> seen;
    QObject::connect(&theme, &TidloTheme::colorsChanged, [&] { seen.append(theme.darkness()); });
    theme.setPreference(QStringLiteral("light"));

    // Then the scheme is light, and the colours move until they arrive.
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 1);
    waitForDarkness(0);
    EXPECT_THAT(seen, testing::Contains(testing::AllOf(testing::Gt(0), testing::Lt(1))));
    expectScheme(theme, &NamedColor::light);
}

TEST_F(TidloThemeTest, ColorsStayBetweenTheSchemesWhileTheMotionSwingsOver)
{
    theme.setPreference(QStringLiteral("dark"));
    double least = 1;
    QObject::connect(&theme, &TidloTheme::colorsChanged, [&] {
        least = std::min(least, theme.darkness());
        const double red = theme.windowBackground().redF();
        EXPECT_GE(red, 0.055 - 0.001);
        EXPECT_LE(red, 0.953 + 0.001);
    });

    theme.setPreference(QStringLiteral("light"));
    waitForDarkness(0);

    EXPECT_LT(least, 0);
}

TEST_F(TidloThemeTest, TurningBackOnTheWayGoesOnFromWhereItIs)
{
    // Given a change to the light scheme that is under way
    theme.setPreference(QStringLiteral("dark"));
    theme.setPreference(QStringLiteral("light"));
    waitUntil([&] { return theme.darkness() < 1; });
    const double reached = theme.darkness();

    // When the dark one is chosen again
    theme.setPreference(QStringLiteral("dark"));

    // Then no colour jumps.
    EXPECT_NEAR(theme.darkness(), reached, 0.02);
    waitForDarkness(1);
}

TEST_F(TidloThemeTest, TheSamePreferenceAgainChangesNothing)
{
    theme.setPreference(QStringLiteral("dark"));
    const auto again = [&] { theme.setPreference(QStringLiteral("dark")); };
    EXPECT_EQ(times(&TidloTheme::preferenceChanged, again), 0);
    EXPECT_EQ(times(&TidloTheme::schemeChanged, again), 0);
    EXPECT_EQ(times(&TidloTheme::colorsChanged, again), 0);
}

TEST_F(TidloThemeTest, APreferenceOfTheSameSchemeMovesNoColor)
{
    setSystem(ColorScheme::dark);
    theme.setPreference(QStringLiteral("dark"));
    const auto follow = [&] { theme.setPreference(QStringLiteral("system")); };
    EXPECT_EQ(times(&TidloTheme::schemeChanged, follow), 0);
    EXPECT_EQ(theme.darkness(), 1);
}

TEST_F(TidloThemeTest, FollowsTheSystemsSchemeWhileItIsToldTo)
{
    setSystem(ColorScheme::light);
    theme.setPreference(QStringLiteral("system"));
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 0);

    EXPECT_EQ(times(&TidloTheme::schemeChanged, [] { setSystem(ColorScheme::dark); }), 1);
    EXPECT_TRUE(theme.isDark());
    waitForDarkness(1);
}

TEST_F(TidloThemeTest, TheSystemsSchemeDoesNotMatterToAChosenOne)
{
    setSystem(ColorScheme::light);
    theme.setPreference(QStringLiteral("dark"));
    EXPECT_EQ(times(&TidloTheme::schemeChanged, [] { setSystem(ColorScheme::dark); }), 0);
    EXPECT_EQ(times(&TidloTheme::schemeChanged, [] { setSystem(ColorScheme::light); }), 0);
    EXPECT_TRUE(theme.isDark());
}

TEST_F(TidloThemeTest, WhatTheDesktopWishesHoldsWhateverColorsThePlatformGives)
{
    setSystem(ColorScheme::light);
    theme.setPreference(QStringLiteral("system"));

    EXPECT_EQ(times(&TidloTheme::schemeChanged, [this] { theme.setDesktopScheme(ColorScheme::dark); }), 1);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 1);

    EXPECT_EQ(times(&TidloTheme::schemeChanged, [] { setSystem(ColorScheme::dark); }), 0);
    EXPECT_EQ(times(&TidloTheme::schemeChanged, [] { setSystem(ColorScheme::light); }), 0);
    EXPECT_TRUE(theme.isDark());
}

TEST_F(TidloThemeTest, WhatTheDesktopWishesLaterIsReachedByAMotion)
{
    theme.setPreference(QStringLiteral("system"));
    theme.setDesktopScheme(ColorScheme::dark);

    theme.setDesktopScheme(ColorScheme::light);

    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 1);
    waitForDarkness(0);
}

TEST_F(TidloThemeTest, ChangesAsItIsToldTo)
{
    theme.setPreference(QStringLiteral("dark"));
    theme.setMotion({.duration = 0, .easing = {}});

    theme.setPreference(QStringLiteral("light"));

    EXPECT_EQ(theme.darkness(), 0);
}

TEST_F(TidloThemeTest, ADesktopThatWishesNothingMoreLeavesItToThePlatform)
{
    setSystem(ColorScheme::light);
    theme.setPreference(QStringLiteral("system"));
    theme.setDesktopScheme(ColorScheme::dark);

    theme.setDesktopScheme(std::nullopt);

    EXPECT_FALSE(theme.isDark());
    waitForDarkness(0);
}

TEST_F(TidloThemeTest, TheDesktopsWishDoesNotMatterToAChosenScheme)
{
    theme.setPreference(QStringLiteral("dark"));
    const auto wish = [this] { theme.setDesktopScheme(ColorScheme::light); };
    EXPECT_EQ(times(&TidloTheme::schemeChanged, wish), 0);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.darkness(), 1);
}

TEST_F(TidloThemeTest, AThemeThatIsMadeLaterKnowsTheSystemsScheme)
{
    setSystem(ColorScheme::dark);
    TidloTheme later;
    later.setPreference(QStringLiteral("system"));
    EXPECT_TRUE(later.isDark());
}

TEST(TidloTheme, AFadedColorHasAShareOfItsOwnOpacity)
{
    EXPECT_NEAR(TidloTheme::faded(QColor(10, 20, 30), 0.25).alphaF(), 0.25, 1e-4);
    EXPECT_NEAR(TidloTheme::faded(QColor::fromRgbF(1, 1, 1, 0.5F), 0.5).alphaF(), 0.25, 1e-4);
    EXPECT_EQ(TidloTheme::faded(QColor(10, 20, 30), 0.25).rgb(), QColor(10, 20, 30).rgb());
}

TEST(TidloTheme, NumbersMixAsTheSchemesDo)
{
    EXPECT_EQ(TidloTheme::mixed(1, 0.2, 0.15), 0.2);
    EXPECT_EQ(TidloTheme::mixed(0, 0.2, 0.15), 0.15);
    EXPECT_DOUBLE_EQ(TidloTheme::mixed(0.5, 0.2, 0.1), 0.15);
}

TEST_F(TidloThemeTest, WithHighContrastWhateverIsReadStandsOutOnWhateverItIsDrawnOn)
{
    for (const char *preference : {"dark", "light"}) {
        theme.setHighContrast(false);
        theme.setPreference(QLatin1StringView(preference));
        waitUntil([&] { return theme.darkness() == (theme.isDark() ? 1 : 0); });
        const auto colorOf = [this](const char *name) { return theme.property(name).value<QColor>(); };
        std::map<const char *, QColor> plain;
        for (const NamedColor &color : colors)
            plain.emplace(color.name, colorOf(color.name));

        EXPECT_EQ(times(&TidloTheme::colorsChanged, [this] { theme.setHighContrast(true); }), 1);

        Grounds grounds;
        Grounds tinted;
        for (const char *surface : {"cardSurface", "controlSurface", "windowBackground", "topBarBackground",
                                    "railBackground", "sidebarBackground"}) {
            EXPECT_EQ(colorOf(surface), plain.at(surface)) << surface;
            grounds.surfaces.append(plain.at(surface));
            tinted.surfaces.append(plain.at(surface));
            for (const QColor &tint : {TidloTheme::faded(theme.blue(), 0.3), TidloTheme::faded(theme.green(), 0.16),
                                       TidloTheme::faded(theme.systemGray(), 0.18)})
                tinted.surfaces.append(laidOver(tint, plain.at(surface)));
        }
        EXPECT_EQ(theme.systemGray(), plain.at("systemGray"));
        for (const char *text : {"primaryText", "mutedText", "secondaryLabel"})
            EXPECT_GE(leastContrast(colorOf(text), tinted), 4.5) << text << preference;
        EXPECT_GE(leastContrast(colorOf("railSymbol"), grounds), 3) << preference;
        grounds.ownTint = 0.22;
        for (const char *hue : {"blue", "green", "red", "systemBlue", "systemMint", "systemPurple", "systemYellow",
                                "systemOrange", "systemRed"}) {
            EXPECT_GE(leastContrast(colorOf(hue), grounds), 4.5) << hue << preference;
            EXPECT_NEAR(colorOf(hue).hslHueF(), plain.at(hue).hslHueF(), 0.01) << hue << preference;
            EXPECT_NEAR(colorOf(hue).hslSaturationF(), plain.at(hue).hslSaturationF(), 0.01) << hue << preference;
        }
        EXPECT_GE(leastContrast(theme.accentLabel(), {.surfaces = {theme.green()}}), 4.5) << preference;
        EXPECT_EQ(theme.selection().alphaF(), 1);
        EXPECT_GE(contrastBetween(theme.selectedText(), theme.selection()), 4.5) << preference;
        for (const char *line : {"controlBorder", "divider"})
            EXPECT_EQ(colorOf(line).alphaF(), 1) << line;
        EXPECT_EQ(theme.solid(theme.red(), 0.35), theme.red());
        EXPECT_EQ(times(&TidloTheme::colorsChanged, [this] { theme.setHighContrast(true); }), 0);

        theme.setHighContrast(false);
        for (const NamedColor &color : colors)
            EXPECT_EQ(colorOf(color.name), plain.at(color.name)) << color.name;
        EXPECT_EQ(theme.solid(theme.red(), 0.35), TidloTheme::faded(theme.red(), 0.35));
        EXPECT_EQ(theme.accentLabel(), QColor(Qt::black));
        EXPECT_EQ(theme.selection(), TidloTheme::faded(theme.blue(), 0.45));
        EXPECT_EQ(theme.selectedText(), theme.primaryText());
    }
}

} // namespace tidlo
