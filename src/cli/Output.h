#pragma once

#include <QByteArray>
#include <QString>

#include <nlohmann/json_fwd.hpp>

namespace tidlo {

/// How a command ended, besides 128 and the number of the signal that interrupted it.
enum class ExitStatus : int {
    succeeded = 0,
    failed = 1,  ///< Output could not be written, or something that was asked for was not done.
    misused = 2, ///< The command line is wrong; nothing was done.
    refused = 3, ///< What was asked for was left undone on purpose.
};

/// Opens what the caller left closed among the three standard descriptors so that no file opened later takes its place;
/// reading from or writing to such a stand-in fails. To be called before anything else.
void holdStandardStreams();

/// Writes all of \a bytes and waits where it must. Gives 0, or the errno of its failure.
int writeAll(int descriptor, const QByteArray &bytes);

/// Writes to standard output. Returns the exit status for it, having complained if it failed.
ExitStatus print(const QString &text);

/// The same for a JSON object. It is written in ASCII alone, so that no name in it can act on a terminal.
ExitStatus print(const nlohmann::ordered_json &json);

/// Writes a line to standard error, with the program's name in front and control characters shown as escapes.
void complain(const QString &text);

} // namespace tidlo
