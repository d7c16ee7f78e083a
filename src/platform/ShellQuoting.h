#pragma once

#include "model/FilePath.h"

#include <QList>

#include <optional>

namespace tidlo {

/// What a shell reads as its own between double quotes.
inline constexpr QByteArrayView readByShell("\"$`\\");

/// The first of \a paths that holds one of \a characters and so does not mean itself where it is quoted.
std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters = readByShell);

} // namespace tidlo
