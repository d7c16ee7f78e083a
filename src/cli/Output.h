#pragma once

#include <QByteArray>
#include <QString>

#include <nlohmann/json_fwd.hpp>

namespace tidlo {

/// The exit status of a command; after a signal it is 128 plus the signal's number instead.
enum class ExitStatus : int {
    succeeded = 0,
    failed = 1,  ///< Output could not be written, or a request was not carried out.
    misused = 2, ///< The command line is wrong; nothing was done.
    refused = 3, ///< The request was refused on purpose.
};

/// If the caller closed any of the three standard descriptors, opens it with a placeholder, so that no file opened
/// later gets its number; reading from or writing to the placeholder fails. Call this before anything else.
void holdStandardStreams();

/// Writes all of \a bytes, and waits if necessary. Returns 0, or the errno of the failure.
int writeAll(int descriptor, const QByteArray &bytes);

/// Writes to standard output. Returns the exit status; if it failed, an error message was written.
ExitStatus print(const QString &text);

/// The same for a JSON object. It is written as ASCII only, so that no name in it can act on a terminal.
ExitStatus print(const nlohmann::ordered_json &json);

/// Writes a line to standard error, with the program's name before it and control characters escaped.
void complain(const QString &text);

} // namespace tidlo
