#pragma once

#include "model/CleanupCandidate.h"

#include <QList>
#include <QString>

#include <optional>

namespace tidlo::proxy {

/// What a prompt says about one finding, without any names from somebody's disk.
struct PromptFinding
{
    QString title; ///< Unchanged: to be compared, never repeated.
    CleanupCategory category = CleanupCategory::protected_;
    CleanupRisk risk = CleanupRisk::never;
    QString size;     ///< A number and its unit, nothing else.
    double bytes = 0; ///< Approximately.
    bool operator==(const PromptFinding &) const = default;
};

/// The findings that \a prompt lists, eight at most, in order; nothing if it is no prompt that lists findings. Names
/// may hold line feeds and thus imitate the lines of a finding: lines that do not fit are skipped, but a perfect
/// imitation cannot be recognised. Any text is safe.
std::optional<QList<PromptFinding>> findingsIn(const QString &prompt);

} // namespace tidlo::proxy
