#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// The chat media of WhatsApp Desktop, always a candidate and the one that starts unselected; then its temporary
/// caches, a candidate only when they take room. Nothing else of its container is ever listed, least of all the chats.
QList<Finding> whatsAppCandidates(const FileManager &files, const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
