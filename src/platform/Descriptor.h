#pragma once

#include "model/FilePath.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

/// Makes a system \a call that reports a failure by a negative number and errno, and repeats it when a signal
/// interrupted it: a hundred times at most, since a broken file system may report that forever. Not meant for close(),
/// which closes even when it is interrupted.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    for (int triesLeft = 100; result < 0 && errno == EINTR && triesLeft > 0; --triesLeft)
        result = call();
    return result;
}

/// Makes such a \a call in the same way, and returns 0 or the errno of its failure. Temporary objects that \a call
/// destroys at its end could change errno, so make paths before it.
template <typename Call>
int errorOf(Call call)
{
    return uninterrupted(call) < 0 ? errno : 0;
}

/// Owns one file descriptor, or none, and closes it.
class Descriptor final
{
public:
    Descriptor() = default;
    /// Takes the result of a system call: a descriptor, or -1 with the reason in errno.
    explicit Descriptor(int descriptor)
        : number(descriptor)
        , failure(descriptor < 0 ? errno : 0)
    {}
    Descriptor(Descriptor &&other) noexcept
        : number(std::exchange(other.number, -1))
        , failure(other.failure)
    {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(number, other.number);
        std::swap(failure, other.failure);
        return *this;
    }
    ~Descriptor()
    {
        if (isValid())
            ::close(number);
    }

    /// Owns none, for the reason \a error.
    static Descriptor failed(int error)
    {
        Descriptor none;
        none.failure = error;
        return none;
    }

    int get() const { return number; }
    bool isValid() const { return number >= 0; }
    int error() const { return failure; } ///< Why it owns none, as an errno; 0 if there is no reason.

private:
    int number = -1;
    int failure = 0;
};

/// Both ends of a pipe. Child processes do not inherit them.
struct Pipe
{
    Descriptor readEnd;
    Descriptor writeEnd;
};

/// If the system refuses, neither end is valid, and both hold the reason.
Pipe openPipe();

/// A path in the form that the *at() calls take, of any length: the part beyond PATH_MAX is reached through an open
/// folder.
class PathLocation final
{
public:
    /// Resolves the part of \a path that does not fit into one call, following links as usual. Not valid if that fails
    /// or the path contains a NUL.
    explicit PathLocation(const FilePath &path);

    bool isValid() const { return failure == 0; }
    int error() const { return failure; } ///< The errno of why it is not valid; 0 if it is.
    /// The folder that name() is relative to, AT_FDCWD for a path of ordinary length.
    int folder() const { return holder.isValid() ? holder.get() : AT_FDCWD; }
    const char *name() const { return rest.constData(); }

private:
    Descriptor holder;
    FilePath rest;
    int failure = 0;
};

} // namespace tidlo
