#pragma once

#include <functional>
#include <string>

namespace tidlo {

/// The result of a child process.
struct ChildResult
{
    bool succeeded = false;
    std::string output; ///< Its standard output and error, to explain a failure.
};

/// Runs \a work in a child process of one thread, so that its limits, rights, mounts and filters stay in that process.
/// It succeeds when \a work returns true.
ChildResult inChild(const std::function<bool()> &work);

/// For use inside a child. Each returns whether it succeeded.
bool limitDescriptors(int count); ///< Limits how many files the process may have open.
bool becomeNobody();              ///< Drops root's rights for good; does nothing for other users.

// Only on Linux:
bool enterMountNamespace();                  ///< Later mounts are seen only by this process.
bool enterNetworkNamespace();                ///< With a loopback address where no other program listens.
bool denySystemCall(long number, int error); ///< From now on the call fails with \a error.

} // namespace tidlo
