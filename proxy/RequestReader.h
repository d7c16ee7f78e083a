#pragma once

#include "proxy/Answer.h"

#include <variant>

/// Bytes that the body of a request may have.
inline constexpr qsizetype longestBody = 256 * 1024;

/// What the lines in front of a request's body tell, as far as it matters here.
struct RequestHead
{
    QByteArray device;        ///< Who asks; empty if it is not told.
    QByteArray contentType;   ///< As it was sent.
    QByteArray encoding;      ///< How the body is packed; empty if it is not.
    QByteArray contentLength; ///< As it was sent, empty if it was not.
    bool isChunked = false;   ///< The body comes in chunks, its length is not told.
};

/// Why a request is turned down before its body is read, or nothing. Any bytes are safe.
std::optional<Answer> refusalOf(const RequestHead &head);

/// The prompt in \a body, its texts as they stand, one to a line; or why there is none. Nothing else is kept, so that
/// nothing else reaches the model. Any bytes are safe.
std::variant<QString, Answer> readPrompt(const QByteArray &body);

/// The answer to a body that is too long.
Answer tooLong();
