#include "ui/design/ThemePreference.h"

#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

namespace {

struct Meaning
{
    QString stored;
    std::optional<ColorScheme> scheme;
    QString label;
    QString symbol;
    QString next;
};

Meaning meaning(const char *stored, std::optional<ColorScheme> scheme, const char *label, const char *symbol,
                const char *next)
{
    const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
    return {text(stored), scheme, text(label), text(symbol), text(next)};
}

class EveryPreference : public testing::TestWithParam<Meaning>
{
protected:
    QString stored() const { return GetParam().stored; }
};

INSTANTIATE_TEST_SUITE_P(Recognised, EveryPreference,
                         testing::Values(meaning("dark", ColorScheme::dark, "Dark", "moon.fill", "light"),
                                         meaning("light", ColorScheme::light, "Light", "sun.max.fill", "system"),
                                         meaning("system", std::nullopt, "System", "laptopcomputer", "dark")));

INSTANTIATE_TEST_SUITE_P(AnythingElseFollowsTheSystem, EveryPreference,
                         testing::Values(meaning("", std::nullopt, "System", "laptopcomputer", "dark"),
                                         meaning("Dark", std::nullopt, "System", "laptopcomputer", "dark"),
                                         meaning("LIGHT", std::nullopt, "System", "laptopcomputer", "dark"),
                                         meaning(" light", std::nullopt, "System", "laptopcomputer", "dark"),
                                         meaning("sepia", std::nullopt, "System", "laptopcomputer", "dark")));

} // namespace

TEST_P(EveryPreference, PrefersItsScheme)
{
    EXPECT_EQ(preferredColorScheme(stored()), GetParam().scheme);
}

TEST_P(EveryPreference, PutsInForceItsSchemeOrElseTheSystems)
{
    for (const ColorScheme system : {ColorScheme::dark, ColorScheme::light})
        EXPECT_EQ(effectiveColorScheme(stored(), system), GetParam().scheme.value_or(system));
}

TEST_P(EveryPreference, HasALabelAndASymbol)
{
    EXPECT_EQ(themeLabel(stored()), GetParam().label);
    EXPECT_EQ(themeSymbol(stored()), GetParam().symbol);
}

TEST_P(EveryPreference, IsFollowedByAnother)
{
    EXPECT_EQ(themeAfter(stored()), GetParam().next);
}

TEST(ThemePreference, IsTheSameAgainAfterThree)
{
    EXPECT_EQ(themeAfter(themeAfter(themeAfter(QStringLiteral("dark")))), QStringLiteral("dark"));
}

} // namespace tidlo
