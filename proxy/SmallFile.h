#pragma once

#include "proxy/OrReason.h"

#include <QByteArray>

#include <optional>

namespace tidlo::proxy {

enum class Links { followed, refused };

/// What the regular file \a name holds, 64 KB at most; nothing, and no reason, if there is none. Reading waits for
/// nobody, not even where something else than a file has that name. Links in front of the last name are followed.
OrReason<std::optional<QByteArray>> readSmallFile(const QString &name, Links links);

/// Puts \a content in the place of \a name: whole or not at all, never for a moment readable by others, never through a
/// link. Whether that succeeded.
bool replaceFile(const QString &name, const QByteArray &content);

} // namespace tidlo::proxy
