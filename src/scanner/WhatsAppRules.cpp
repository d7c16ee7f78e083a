#include "scanner/ExistingPaths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <array>
#include <utility>

namespace tidlo {

namespace {

constexpr FindingTemplate media{
    .title = QLatin1StringView("WhatsApp / Chat Media & Attachments"),
    .detail = QLatin1StringView("Chat photos, videos, and media files. Unchecked by default; check manually if you "
                                "want to clear media to free space."),
    .category = CleanupCategory::whatsApp,
    .risk = CleanupRisk::review,
    .selected = false,
};

constexpr FindingTemplate caches{
    .title = QLatin1StringView("WhatsApp / Temporary App Caches"),
    .detail =
        QLatin1StringView("App UI caches, logs, and temporary web previews. Safe to clean without losing chat media."),
    .category = CleanupCategory::whatsApp,
    .risk = CleanupRisk::safe,
};

constexpr std::array mediaFolders{"Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"};
constexpr std::array cacheFolders{"Library/Caches/net.whatsapp.WhatsApp"};

} // namespace

QList<Finding> whatsAppCandidates(const FileManager &files, const FilePath &home, std::stop_token stop)
{
    const QList<FilePath> mediaPaths = existingPaths(files, home, mediaFolders);
    const QList<FilePath> cachePaths = existingPaths(files, home, cacheFolders);
    const QList<qint64> sizes = files.allocatedSizes(mediaPaths + cachePaths, std::move(stop));

    QList<Finding> findings{makeFinding(media, mediaPaths, sizes.first(mediaPaths.size()))};
    const Finding found = makeFinding(caches, cachePaths, sizes.sliced(mediaPaths.size()));
    if (found.candidate.bytes > 0)
        findings.append(found);
    return findings;
}

} // namespace tidlo
