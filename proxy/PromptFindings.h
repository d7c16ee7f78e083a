#pragma once

#include "model/CleanupCandidate.h"

#include <QList>
#include <QString>

#include <optional>

namespace tidlo::proxy {

/// What a prompt tells about one finding, as far as it is not a name from somebody's disk.
struct PromptFinding
{
    QString title; ///< As it stands: to be compared, never repeated.
    CleanupCategory category = CleanupCategory::protected_;
    CleanupRisk risk = CleanupRisk::never;
    QString size;     ///< A number and its unit, nothing else.
    double bytes = 0; ///< About so many.
    bool operator==(const PromptFinding &) const = default;
};

/// The findings that \a prompt lists, eight at most, in order; nothing if it is no prompt that lists findings. Names
/// may hold line feeds and thus pretend to be lines of a finding: what does not fit is passed over, but what fits
/// perfectly cannot be told apart. Any text is safe.
std::optional<QList<PromptFinding>> findingsIn(const QString &prompt);

} // namespace tidlo::proxy
