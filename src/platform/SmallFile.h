#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"

namespace tidlo {

/// Whether a link at the end of a path is followed. Those in front of its last name always are.
enum class LinkAtEnd { followed, refused };

/// How much a small file holds at most, in bytes.
inline constexpr qint64 smallFileLimit = qint64(64) * 1024;

/// What the regular file at \a path holds. Waits for nobody, not even where something else than a file has that name.
/// The error is ELOOP for a link that is refused, EBADMSG for what is no regular file, and EFBIG for a file with more
/// than smallFileLimit.
OrError<QByteArray> readSmallFile(const FilePath &path, LinkAtEnd link);

/// The same of an open \a file. One that can wait must have been opened with O_NONBLOCK.
OrError<QByteArray> readSmallFile(const Descriptor &file);

} // namespace tidlo
