#pragma once

#include "model/CleanupCandidate.h"

#include <QStringView>

namespace tidlo {

// How the cases of the model look. Colours are the names of properties of TidloTheme, so that views follow the theme.

struct CategoryPresentation
{
    CleanupCategory category;
    QStringView color;
    QStringView symbol;
    QStringView subtitle;
};

const CategoryPresentation &presentationOf(CleanupCategory category);

struct RiskPresentation
{
    CleanupRisk risk;
    QStringView color;      ///< Of the size and its bar.
    QStringView badgeColor; ///< Of the badge.
};

const RiskPresentation &presentationOf(CleanupRisk risk);

/// A byte count in file style, and an em dash where there is nothing.
QString byteCountOrDash(qint64 bytes);

} // namespace tidlo
