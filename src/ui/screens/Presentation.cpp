#include "ui/screens/Presentation.h"

#include "platform/ByteCountFormatter.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

using Hue = TidloTheme::Hue;

constexpr std::array categories{
    CategoryPresentation{CleanupCategory::devProjects, Hue::Blue, u"folder.badge.gearshape",
                         u"Temporary project data · Build caches"},
    CategoryPresentation{CleanupCategory::whatsApp, Hue::Mint, u"message.circle", u"Media cache only"},
    CategoryPresentation{CleanupCategory::caches, Hue::Purple, u"externaldrive", u"Browser cache · App temp files"},
    CategoryPresentation{CleanupCategory::downloads, Hue::Yellow, u"arrow.down.to.line",
                         u"Installers · Archives · Large media"},
    CategoryPresentation{CleanupCategory::oldLargeFiles, Hue::Orange, u"clock.arrow.circlepath",
                         u">100 MB · Unused for 60+ days"},
    CategoryPresentation{CleanupCategory::protected_, Hue::Red, u"lock.shield", u"Never-touch items"},
};

constexpr std::array risks{
    RiskPresentation{CleanupRisk::safe, Hue::Mint, Hue::Mint},
    RiskPresentation{CleanupRisk::rebuildable, Hue::Blue, Hue::Blue},
    RiskPresentation{CleanupRisk::review, Hue::Yellow, Hue::Yellow},
    RiskPresentation{CleanupRisk::never, Hue::Red, Hue::AccentRed},
};

// presentationOf() finds each row by its index.
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
