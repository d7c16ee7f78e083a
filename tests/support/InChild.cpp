#include "support/InChild.h"

#include "platform/Descriptor.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Exist only where the compiler counts what runs. See "Source-based code coverage" of clang's documentation.
extern "C" {
[[gnu::weak]] void __llvm_profile_set_filename(const char *name);
[[gnu::weak]] int __llvm_profile_write_file();
}

namespace tidlo {

namespace {

/// Writes the counts of this process, since _exit does not.
void keepCounts()
{
    if (__llvm_profile_write_file == nullptr)
        return;
    __llvm_profile_set_filename(std::getenv("LLVM_PROFILE_FILE")); // Its number of the process is that of the parent.
    __llvm_profile_write_file();
}

} // namespace

ChildResult inChild(const std::function<bool()> &work)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return {.output = "no pipe"};
    Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        reading = Descriptor();
        dup2(writing.get(), STDOUT_FILENO);
        dup2(writing.get(), STDERR_FILENO);
        writing = Descriptor();
        const bool succeeded = work();
        std::fflush(nullptr);
        keepCounts();
        _exit(succeeded ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    writing = Descriptor();
    ChildResult result;
    std::array<char, 4096> part{};
    for (ssize_t count = 0; (count = read(reading.get(), part.data(), part.size())) > 0;)
        result.output.append(part.data(), static_cast<size_t>(count));
    int status = 0;
    waitpid(child, &status, 0);
    result.succeeded = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    return result;
}

bool limitDescriptors(int count)
{
    const auto limit = static_cast<rlim_t>(count);
    const rlimit limits{.rlim_cur = limit, .rlim_max = limit};
    return setrlimit(RLIMIT_NOFILE, &limits) == 0;
}

bool becomeNobody()
{
    constexpr uid_t nobody = 65534;
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
}

} // namespace tidlo
