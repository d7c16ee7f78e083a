#include "platform/Paths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr std::array<QByteArrayView, 10> extensions{"dmg", "zip", "tar", "gz",  "tgz",
                                                    "apk", "avi", "mov", "mp4", "webm"};

constexpr std::chrono::days oldAge(45);

bool isOldDownload(const DirectoryEntry &entry, FileTime cutOff)
{
    const FilePath extension = fileExtension(lastPathComponent(entry.path)).toByteArray().toLower();
    return std::ranges::find(extensions, extension) != extensions.end() && entry.attributes.kind == FileKind::regular &&
           entry.attributes.modified && *entry.attributes.modified < cutOff;
}

} // namespace

QList<Finding> downloadCandidates(const ScanContext &context, FileTime now)
{
    const std::optional<QList<DirectoryEntry>> entries =
        context.files.contentsOfDirectory(joined(context.home, "Downloads"), context.notes);
    if (!entries)
        return {};
    QList<FilePath> paths;
    for (const DirectoryEntry &entry : *entries) {
        if (isOldDownload(entry, now - oldAge))
            paths.append(entry.path);
    }
    return {measuredFinding(context, FindingKind::oldDownloads, paths)};
}

} // namespace tidlo
