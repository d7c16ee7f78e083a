#include "fuzz/Input.h"
#include "model/ModelJson.h"

#include <nlohmann/json.hpp>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const QByteArray bytes = bytesOf(data, size);
    const auto json = nlohmann::ordered_json::parse(bytes.begin(), bytes.end(), nullptr, false);
    QString error;
    const std::optional<CleanupCandidate> candidate = candidateFromJson(json, &error);
    require(candidate.has_value() == error.isEmpty(), "there is a candidate or a reason");
    require(!candidate || candidateFromJson(toJson(*candidate)) == candidate, "a candidate is read as it was written");
    return 0;
}
