#include "scanner/ExistingPaths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <array>
#include <utility>

namespace tidlo {

namespace {

constexpr std::array mediaFolders{"Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"};
constexpr std::array cacheFolders{"Library/Caches/net.whatsapp.WhatsApp"};

} // namespace

QList<Finding> whatsAppCandidates(const FileManager &files, const FilePath &home, std::stop_token stop)
{
    const QList<FilePath> mediaPaths = existingPaths(files, home, mediaFolders);
    const QList<FilePath> cachePaths = existingPaths(files, home, cacheFolders);
    const QList<qint64> sizes = files.allocatedSizes(mediaPaths + cachePaths, std::move(stop));

    QList<Finding> findings{makeFinding(FindingKind::chatMedia, mediaPaths, sizes.first(mediaPaths.size()))};
    const Finding found = makeFinding(FindingKind::chatCaches, cachePaths, sizes.sliced(mediaPaths.size()));
    if (found.candidate.bytes > 0)
        findings.append(found);
    return findings;
}

} // namespace tidlo
