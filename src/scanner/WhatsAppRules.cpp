#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <array>

namespace tidlo {

namespace {

constexpr std::array mediaFolders{"Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"};
constexpr std::array chatCaches{"Library/Caches/net.whatsapp.WhatsApp"};

} // namespace

QList<Finding> whatsAppCandidates(const ScanContext &context)
{
    const Finding media = existingFinding(context, FindingKind::chatMedia, mediaFolders);
    const Finding caches = existingFinding(context, FindingKind::chatCaches, chatCaches);
    return caches.candidate.bytes > 0 || !caches.leftOut.isEmpty() ? QList{media, caches} : QList{media};
}

} // namespace tidlo
