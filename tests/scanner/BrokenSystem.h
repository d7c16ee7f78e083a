#pragma once

#include "model/FilePath.h"

#include <map>
#include <mutex>
#include <optional>
#include <set>

namespace tidlo {

/// What the file manager asks the system for. Each may fail where the others do not.
enum class SystemCall { status, open, list, exists, readLink, capacity };

/// Which calls about entries of a home fail, and with which errno.
struct Breakage
{
    std::map<FilePath, int> entries{}; ///< All calls about one of them, and about what lies in it, by whatever path.
    std::optional<SystemCall> only{};  ///< Of those, this kind alone, and for nothing that lies in the entries.
    std::optional<int> call{};         ///< Beside them the call of this number, from 0 on, and no other.
    int errorOfCall = 0;
};

/// As long as it lives, calls of the system about a home fail as told. The linker puts it between what it is linked
/// with and the C library. There is one at a time. Calls come from any thread.
class BrokenSystem final
{
public:
    BrokenSystem(FilePath home, Breakage breakage);
    ~BrokenSystem();
    BrokenSystem(const BrokenSystem &) = delete;
    BrokenSystem &operator=(const BrokenSystem &) = delete;

    /// The errno that a call is to fail with, or 0. \a name is relative to the open \a folder, as the system takes it.
    int errorOf(SystemCall call, int folder, const char *name, bool followsLink);

    int calls() const { return count; } ///< About the home, until now.
    /// What they were about, and of which kind.
    const std::set<std::pair<FilePath, SystemCall>> &asked() const { return askedCalls; }
    /// Those of them that were refused, by what they were about, and how.
    const std::map<std::pair<FilePath, SystemCall>, int> &refused() const { return refusedCalls; }

private:
    FilePath placeOf(const FilePath &path, bool isRelative, bool followsLink);

    const FilePath home;
    const Breakage breakage;
    std::mutex mutex;
    int count = 0;
    std::set<std::pair<FilePath, SystemCall>> askedCalls;
    std::map<FilePath, FilePath> places; ///< That paths lead to, as far as they were asked; the tree stays as it is.
    std::map<std::pair<FilePath, SystemCall>, int> refusedCalls;
};

} // namespace tidlo
