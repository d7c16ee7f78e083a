#pragma once

#include "model/CleanupCandidate.h"
#include "ui/design/TidloTheme.h"

#include <QStringView>

namespace tidlo {

// How the cases of the model look.

struct CategoryPresentation
{
    CleanupCategory category;
    TidloTheme::Hue hue;
    QStringView symbol;
    QStringView subtitle;
};

const CategoryPresentation &presentationOf(CleanupCategory category);

struct RiskPresentation
{
    CleanupRisk risk;
    TidloTheme::Hue hue;      ///< Of the size and its bar.
    TidloTheme::Hue badgeHue; ///< Of the badge.
};

const RiskPresentation &presentationOf(CleanupRisk risk);

/// A byte count in file style, or an em dash for 0.
QString byteCountOrDash(qint64 bytes);

} // namespace tidlo
