#include "platform/Descriptor.h"
#include "support/InChild.h"

#include <array>
#include <cstddef>

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tidlo {

namespace {

bool writeLine(const char *path, const std::string &line)
{
    const Descriptor file(open(path, O_WRONLY | O_CLOEXEC));
    return write(file.get(), line.data(), line.size()) == static_cast<ssize_t>(line.size());
}

/// For users other than root: mounting is allowed in a user namespace, in which all users keep their numbers.
bool enterUserNamespace()
{
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeLine("/proc/self/uid_map", user + ' ' + user + " 1") &&
           writeLine("/proc/self/setgroups", "deny") && writeLine("/proc/self/gid_map", group + ' ' + group + " 1");
}

} // namespace

bool enterMountNamespace()
{
    return (unshare(CLONE_NEWNS) == 0 || enterUserNamespace()) &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool enterNetworkNamespace()
{
    if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq loopback{};
    loopback.ifr_name[0] = 'l';
    loopback.ifr_name[1] = 'o';
    loopback.ifr_flags = IFF_UP;
    const bool isUp = ioctl(socket, SIOCSIFFLAGS, &loopback) == 0;
    close(socket);
    return isUp;
}

bool denySystemCall(long number, int error)
{
    const std::array<sock_filter, 4> program{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(error)),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{.len = program.size(), .filter = const_cast<sock_filter *>(program.data())};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

} // namespace tidlo
