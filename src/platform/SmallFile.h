#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"

namespace tidlo {

/// Whether a link at the end of a path is followed. Links before the last name always are.
enum class LinkAtEnd { followed, refused };

/// The largest size of a small file, in bytes.
inline constexpr qint64 smallFileLimit = qint64(64) * 1024;

/// The content of the regular file at \a path. Never blocks, even if the path names something else, such as a pipe. The
/// error is ELOOP for a link that is refused, EBADMSG if it is not a regular file, and EFBIG if it is larger than
/// smallFileLimit.
OrError<QByteArray> readSmallFile(const FilePath &path, LinkAtEnd link);

/// The same for an open \a file, which must have been opened with O_NONBLOCK if reading from it can block.
OrError<QByteArray> readSmallFile(const Descriptor &file);

} // namespace tidlo
