#include "ui/screens/Presentation.h"

#include "support/PrintQt.h"
#include "ui/design/TidloTheme.h"

#include <gmock/gmock.h>

namespace tidlo {

namespace {

bool isColorOfTheTheme(QStringView name)
{
    return TidloTheme::staticMetaObject.indexOfProperty(name.toLatin1()) >= 0;
}

class EveryCategory : public testing::TestWithParam<CategoryPresentation>
{};

INSTANTIATE_TEST_SUITE_P(
    Presentation, EveryCategory,
    testing::Values(
        CategoryPresentation{CleanupCategory::devProjects, u"systemBlue", u"folder.badge.gearshape",
                             u"Temporary project data · Build caches"},
        CategoryPresentation{CleanupCategory::whatsApp, u"systemMint", u"message.circle", u"Media cache only"},
        CategoryPresentation{CleanupCategory::caches, u"systemPurple", u"externaldrive",
                             u"Browser cache · App temp files"},
        CategoryPresentation{CleanupCategory::downloads, u"systemYellow", u"arrow.down.to.line",
                             u"Installers · Archives · Large media"},
        CategoryPresentation{CleanupCategory::oldLargeFiles, u"systemOrange", u"clock.arrow.circlepath",
                             u">100 MB · Unused for 60+ days"},
        CategoryPresentation{CleanupCategory::protected_, u"systemRed", u"lock.shield", u"Never-touch items"}));

class EveryRisk : public testing::TestWithParam<RiskPresentation>
{};

INSTANTIATE_TEST_SUITE_P(Presentation, EveryRisk,
                         testing::Values(RiskPresentation{CleanupRisk::safe, u"systemMint", u"systemMint"},
                                         RiskPresentation{CleanupRisk::rebuildable, u"systemBlue", u"systemBlue"},
                                         RiskPresentation{CleanupRisk::review, u"systemYellow", u"systemYellow"},
                                         RiskPresentation{CleanupRisk::never, u"systemRed", u"red"}));

} // namespace

TEST_P(EveryCategory, HasItsColorSymbolAndSubtitle)
{
    const CategoryPresentation &expected = GetParam();
    const CategoryPresentation &presentation = presentationOf(expected.category);
    EXPECT_EQ(presentation.color.toString(), expected.color.toString());
    EXPECT_EQ(presentation.symbol.toString(), expected.symbol.toString());
    EXPECT_EQ(presentation.subtitle.toString(), expected.subtitle.toString());
    EXPECT_TRUE(isColorOfTheTheme(presentation.color));
}

TEST_P(EveryRisk, HasItsColorsAndThatOfTheBadgeMayBeAnother)
{
    const RiskPresentation &expected = GetParam();
    const RiskPresentation &presentation = presentationOf(expected.risk);
    EXPECT_EQ(presentation.color.toString(), expected.color.toString());
    EXPECT_EQ(presentation.badgeColor.toString(), expected.badgeColor.toString());
    EXPECT_TRUE(isColorOfTheTheme(presentation.color));
    EXPECT_TRUE(isColorOfTheTheme(presentation.badgeColor));
}

TEST(Presentation, ACountBelowOneByteIsADash)
{
    EXPECT_EQ(byteCountOrDash(0), QStringLiteral("—"));
    EXPECT_EQ(byteCountOrDash(-1), QStringLiteral("—"));
    EXPECT_EQ(byteCountOrDash(std::numeric_limits<qint64>::min()), QStringLiteral("—"));
}

TEST(Presentation, ACountFromOneByteOnIsWritten)
{
    EXPECT_EQ(byteCountOrDash(1), QStringLiteral("1 byte"));
    EXPECT_EQ(byteCountOrDash(4'200'000'000), QStringLiteral("4.2 GB"));
}

} // namespace tidlo
