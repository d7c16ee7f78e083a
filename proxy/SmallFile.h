#pragma once

#include "proxy/OrReason.h"

#include <QByteArray>

#include <optional>

namespace tidlo::proxy {

enum class Links { followed, refused };

/// The content of the regular file \a name, 64 KB at most; no value and no reason if it does not exist. Never blocks,
/// even if \a name is not a regular file. Links before the last name are followed.
OrReason<std::optional<QByteArray>> readSmallFile(const QString &name, Links links);

/// Replaces the file \a name by one with \a content: as a whole or not at all, never readable by others at any moment,
/// never through a link. Returns whether that succeeded.
bool replaceFile(const QString &name, const QByteArray &content);

} // namespace tidlo::proxy
