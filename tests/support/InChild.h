#pragma once

#include <functional>
#include <string>

namespace tidlo {

/// What a child process made of its work.
struct ChildResult
{
    bool succeeded = false;
    std::string output; ///< What it wrote to its standard output and error, to explain a failure.
};

/// Runs \a work in a child process of one thread, so that limits, rights, mounts and filters that it takes on are its
/// own. It succeeds when \a work returns true.
ChildResult inChild(const std::function<bool()> &work);

/// For use inside a child. Each returns whether that is so from now on.
bool limitDescriptors(int count); ///< How many files the process may have open.
bool becomeNobody();              ///< Drops root's rights for good; others have none to drop.

// On Linux alone:
bool enterMountNamespace();                  ///< Mounts made afterwards are seen by this process alone.
bool enterNetworkNamespace();                ///< It has a loopback address of its own, where nobody else listens.
bool denySystemCall(long number, int error); ///< From now on the call fails with \a error.

} // namespace tidlo
