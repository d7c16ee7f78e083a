#pragma once

#include "model/CleanupCandidate.h"
#include "model/CleanupReport.h"
#include "model/ScanSnapshot.h"

#include <nlohmann/json_fwd.hpp>

namespace tidlo {

/// The records as JSON objects whose keys are the field names, in declaration order. Enumerations are written as their
/// raw values and identifiers as upper-case UUIDs; an absent optional is left out. Paths become text, and bytes in them
/// that are not valid UTF-8 become U+FFFD, since JSON has no other way to hold them.
nlohmann::ordered_json toJson(const CleanupCandidate &candidate);
nlohmann::ordered_json toJson(const ScanTotals &totals);
nlohmann::ordered_json toJson(const CleanupReport &report);

/// The candidate that \a json describes. Every key is required but "aiExplanation", which may be missing or null;
/// unknown keys are ignored. On failure there is no value, and \a error, if given, is set to a sentence that names the
/// key.
std::optional<CleanupCandidate> candidateFromJson(const nlohmann::ordered_json &json, QString *error = nullptr);

} // namespace tidlo
