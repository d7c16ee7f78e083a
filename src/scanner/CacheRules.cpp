#include "scanner/ExistingPaths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <array>
#include <utility>

namespace tidlo {

namespace {

constexpr std::array cacheFolders{
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

QList<Finding> cacheCandidates(const FileManager &files, const FilePath &home, std::stop_token stop)
{
    const QList<FilePath> paths = existingPaths(files, home, cacheFolders);
    return {makeFinding(FindingKind::userCaches, paths, files.allocatedSizes(paths, std::move(stop)))};
}

} // namespace tidlo
