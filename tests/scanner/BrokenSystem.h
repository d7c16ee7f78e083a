#pragma once

#include "model/FilePath.h"

#include <map>
#include <mutex>
#include <optional>
#include <set>

namespace tidlo {

/// The kinds of calls that the file manager makes. Each may fail while the others work.
enum class SystemCall { status, open, list, exists, readLink, capacity };

/// Which calls about entries of a home folder fail, and with which errno.
struct Breakage
{
    std::map<FilePath, int> entries{}; ///< All calls about one of them or its content, by any path.
    std::optional<SystemCall> only{};  ///< Of those, only this kind, and not about the content.
    std::optional<int> call{};         ///< Besides, the call of this number, from 0 on.
    int errorOfCall = 0;
};

/// While it exists, system calls about a home folder fail as described. The linker redirects these calls here instead
/// of to the C library. Only one may exist at a time. Calls come from any thread.
class BrokenSystem final
{
public:
    BrokenSystem(FilePath home, Breakage breakage);
    ~BrokenSystem();
    BrokenSystem(const BrokenSystem &) = delete;
    BrokenSystem &operator=(const BrokenSystem &) = delete;

    /// The errno with which a call must fail, or 0. \a name is relative to the open \a folder, as in the *at() calls.
    int errorOf(SystemCall call, int folder, const char *name, bool followsLink);

    int calls() const { return count; } ///< Number of calls about the home folder so far.
    /// The paths and the kinds of these calls.
    const std::set<std::pair<FilePath, SystemCall>> &asked() const { return askedCalls; }
    /// The errno of each call that failed.
    const std::map<std::pair<FilePath, SystemCall>, int> &refused() const { return refusedCalls; }

private:
    FilePath placeOf(const FilePath &path, bool isRelative, bool followsLink);

    const FilePath home;
    const Breakage breakage;
    std::mutex mutex;
    int count = 0;
    std::set<std::pair<FilePath, SystemCall>> askedCalls;
    std::map<FilePath, FilePath> places; ///< The resolved paths so far; the tree does not change.
    std::map<std::pair<FilePath, SystemCall>, int> refusedCalls;
};

} // namespace tidlo
