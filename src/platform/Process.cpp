#include "platform/Process.h"

#include <algorithm>
#include <csignal>
#include <exception>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ; // NOLINT(readability-redundant-declaration): not every system declares it.

namespace tidlo {

namespace {

/// A list of texts in the form that the system expects, with a null at its end. Points into \a texts.
std::vector<char *> listOf(const QByteArrayList &texts)
{
    std::vector<char *> list;
    for (const QByteArray &text : texts)
        list.push_back(const_cast<char *>(text.constData()));
    list.push_back(nullptr);
    return list;
}

/// Returns 0, or the errno of what failed.
int spawnDetached(const FilePath &program, const QByteArrayList &arguments, pid_t &child)
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
    const QByteArrayList words = QByteArrayList{program} + arguments;
    const int error = posix_spawn(&child, program.constData(), &files, &attributes, listOf(words).data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

} // namespace

std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments)
{
    pid_t child = 0;
    if (const int error = spawnDetached(program, arguments, child))
        return qt_error_string(error);
    try {
        std::thread([child] { uninterrupted([child] { return waitpid(child, nullptr, 0); }); }).detach();
    } catch (const std::exception &) { // No thread can be started, so the system keeps the child as a zombie until this
                                       // program ends.
    }
    return std::nullopt;
}

OrError<ChildProcess> ChildProcess::start(const QByteArrayList &arguments, const QByteArrayList &environment,
                                          const std::vector<File> &files)
{
    // Each is dup'ed to its number, so none may have one of those before.
    const int firstFree = std::ranges::max(files, {}, &File::number).number + 1;
    std::vector<Descriptor> moved;
    for (const File &file : files) {
        moved.emplace_back(fcntl(file.ours, F_DUPFD_CLOEXEC, firstFree));
        if (!moved.back().isValid())
            return Errno{moved.back().error()};
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    for (size_t i = 0; i < files.size(); ++i)
        posix_spawn_file_actions_adddup2(&actions, moved[i].get(), files[i].number);
    pid_t child = -1;
    const int error = posix_spawn(&child, arguments.first().constData(), &actions, nullptr, listOf(arguments).data(),
                                  listOf(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? OrError(ChildProcess(child)) : Errno{error};
}

ChildProcess::ChildProcess(ChildProcess &&other) noexcept
    : number(std::exchange(other.number, -1))
{}

ChildProcess::~ChildProcess()
{
    if (number == -1)
        return;
    kill(number, SIGKILL);
    uninterrupted([this] { return waitpid(number, nullptr, 0); });
}

} // namespace tidlo
