#include "platform/Process.h"

#include "platform/Descriptor.h"

#include <array>
#include <csignal>
#include <exception>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ; // NOLINT(readability-redundant-declaration): not every system declares it.

namespace tidlo {

namespace {

/// The list of arguments in the form that the system expects, with a null at its end. Points into the parameters.
std::vector<char *> listOf(const FilePath &program, const QByteArrayList &arguments)
{
    std::vector<char *> list{const_cast<char *>(program.constData())};
    for (const QByteArray &argument : arguments)
        list.push_back(const_cast<char *>(argument.constData()));
    list.push_back(nullptr);
    return list;
}

/// Returns 0, or the errno of what failed.
int spawn(const FilePath &program, const QByteArrayList &arguments, pid_t &child)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) // The streams of this process may be closed
                                                                          // before the child ends.
        posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_RDWR, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
    sigset_t ignoredByUs;
    sigemptyset(&ignoredByUs);
    sigaddset(&ignoredByUs, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &ignoredByUs);
    const int error =
        posix_spawn(&child, program.constData(), &files, &attributes, listOf(program, arguments).data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

} // namespace

std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments)
{
    pid_t child = 0;
    if (const int error = spawn(program, arguments, child))
        return qt_error_string(error);
    try {
        std::thread([child] { uninterrupted([child] { return waitpid(child, nullptr, 0); }); }).detach();
    } catch (const std::exception &) { // No thread can be started, so the system keeps the child as a zombie until this
                                       // program ends.
    }
    return std::nullopt;
}

} // namespace tidlo
