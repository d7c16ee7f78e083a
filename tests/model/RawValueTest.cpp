#include "model/AppSection.h"
#include "model/CleanupCandidate.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

using testing::ElementsAre;

namespace {

template <typename Enum>
QList<QString> texts()
{
    QList<QString> all;
    for (const Enum value : allCases<Enum>())
        all.append(rawValue(value));
    return all;
}

template <typename Enum>
void expectThatEveryCaseIsFoundByItsTextAlone()
{
    for (const Enum value : allCases<Enum>()) {
        EXPECT_EQ(fromRawValue<Enum>(rawValue(value)), value);
        EXPECT_EQ(fromRawValue<Enum>(rawValue(value).toUpper()), std::nullopt) << rawValue(value).toStdString();
        EXPECT_EQ(fromRawValue<Enum>(rawValue(value) + QLatin1Char(' ')), std::nullopt);
        EXPECT_EQ(fromRawValue<Enum>(rawValue(value).chopped(1)), std::nullopt);
    }
    EXPECT_EQ(fromRawValue<Enum>(QStringView()), std::nullopt);
}

} // namespace

TEST(RawValue, OfRisksAreTheirTitlesInOrder)
{
    EXPECT_THAT(allCases<CleanupRisk>(),
                ElementsAre(CleanupRisk::safe, CleanupRisk::rebuildable, CleanupRisk::review, CleanupRisk::never));
    EXPECT_THAT(texts<CleanupRisk>(), ElementsAre(u"Safe to delete", u"Rebuildable", u"Review first", u"Never touch"));
}

TEST(RawValue, OfCategoriesAreTheirTitlesInOrder)
{
    EXPECT_THAT(allCases<CleanupCategory>(),
                ElementsAre(CleanupCategory::devProjects, CleanupCategory::whatsApp, CleanupCategory::caches,
                            CleanupCategory::downloads, CleanupCategory::oldLargeFiles, CleanupCategory::protected_));
    EXPECT_THAT(texts<CleanupCategory>(), ElementsAre(u"Project files", u"WhatsApp", u"User caches", u"Downloads",
                                                      u"Large & old files", u"Protected"));
}

TEST(RawValue, IsComparedExactlyAndWithCase)
{
    expectThatEveryCaseIsFoundByItsTextAlone<CleanupRisk>();
    expectThatEveryCaseIsFoundByItsTextAlone<CleanupCategory>();
    expectThatEveryCaseIsFoundByItsTextAlone<AppSection>();
    EXPECT_EQ(fromRawValue<CleanupRisk>(u"safe to delete"), std::nullopt);
    EXPECT_EQ(fromRawValue<CleanupRisk>(u"safe"), std::nullopt);
    EXPECT_EQ(fromRawValue<CleanupRisk>(u"Safe to delete"), CleanupRisk::safe);
}

TEST(RawValue, OfAValueThatIsNoCaseIsEmpty)
{
    EXPECT_EQ(rawValue(static_cast<CleanupRisk>(4)), QString());
}

} // namespace tidlo
