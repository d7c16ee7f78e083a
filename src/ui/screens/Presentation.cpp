#include "ui/screens/Presentation.h"

#include "platform/ByteCountFormatter.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr std::array categories{
    CategoryPresentation{CleanupCategory::devProjects, u"systemBlue", u"folder.badge.gearshape",
                         u"Temporary project data · Build caches"},
    CategoryPresentation{CleanupCategory::whatsApp, u"systemMint", u"message.circle", u"Media cache only"},
    CategoryPresentation{CleanupCategory::caches, u"systemPurple", u"externaldrive", u"Browser cache · App temp files"},
    CategoryPresentation{CleanupCategory::downloads, u"systemYellow", u"arrow.down.to.line",
                         u"Installers · Archives · Large media"},
    CategoryPresentation{CleanupCategory::oldLargeFiles, u"systemOrange", u"clock.arrow.circlepath",
                         u">100 MB · Unused for 60+ days"},
    CategoryPresentation{CleanupCategory::protected_, u"systemRed", u"lock.shield", u"Never-touch items"},
};

constexpr std::array risks{
    RiskPresentation{CleanupRisk::safe, u"systemMint", u"systemMint"},
    RiskPresentation{CleanupRisk::rebuildable, u"systemBlue", u"systemBlue"},
    RiskPresentation{CleanupRisk::review, u"systemYellow", u"systemYellow"},
    RiskPresentation{CleanupRisk::never, u"systemRed", u"red"},
};

// Each row is where presentationOf() looks for it.
static_assert(std::ranges::equal(categories, allCases<CleanupCategory>(), {}, &CategoryPresentation::category));
static_assert(std::ranges::equal(risks, allCases<CleanupRisk>(), {}, &RiskPresentation::risk));

} // namespace

const CategoryPresentation &presentationOf(CleanupCategory category)
{
    return categories[static_cast<size_t>(category)];
}

const RiskPresentation &presentationOf(CleanupRisk risk)
{
    return risks[static_cast<size_t>(risk)];
}

QString byteCountOrDash(qint64 bytes)
{
    return bytes < 1 ? QStringLiteral("—") : byteCountText(bytes);
}

} // namespace tidlo
