#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"

#include <QByteArrayList>
#include <QString>

#include <optional>
#include <vector>

#include <sys/types.h>

namespace tidlo {

/// The path of the running program's executable, with links resolved; empty if the system does not report it.
FilePath executablePath();

/// Lowers the priority of the calling thread below that of threads which a person waits for, such as the one that
/// draws. This is permanent, and repeating it changes nothing. Where threads inherit it, the threads that it starts
/// have the lower priority as well. If the system refuses, nothing changes.
void standBack();

/// Starts the program at the path \a program in a session of its own, so that it outlives this one, with empty input
/// and discarded output; it is not waited for. Returns the system's message for why it could not be started, or
/// nothing.
std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments);

/// A child process that is killed and waited for when this object is destroyed.
class ChildProcess final
{
public:
    /// A descriptor that the child inherits, and its number there.
    struct File
    {
        int ours;
        int number;
    };

    /// Starts the program whose path is the first of \a arguments, with only this \a environment and these \a files.
    /// Its standard error is discarded.
    static OrError<ChildProcess> start(const QByteArrayList &arguments, const QByteArrayList &environment,
                                       const std::vector<File> &files);

    ChildProcess(ChildProcess &&other) noexcept;
    ChildProcess &operator=(ChildProcess &&) = delete;
    ~ChildProcess();

private:
    explicit ChildProcess(pid_t number)
        : number(number)
    {}

    pid_t number = -1;
};

} // namespace tidlo
