#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <array>

namespace tidlo {

namespace {

constexpr std::array userCaches{
    "Library/Caches/Google",
    "Library/Caches/BraveSoftware",
    "Library/Caches/pip",
    "Library/Caches/ms-playwright",
    "Library/Caches/composer",
    "Library/Caches/electron",
    "Library/Caches/node-gyp",
    "Library/Caches/Homebrew",
    ".cache",
    ".gradle/caches",
};

} // namespace

QList<Finding> cacheCandidates(const ScanContext &context)
{
    return {existingFinding(context, FindingKind::userCaches, userCaches)};
}

} // namespace tidlo
