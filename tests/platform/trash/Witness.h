#pragma once

#include "support/TemporaryHome.h"

#include <set>
#include <string>
#include <vector>

namespace tidlo {

/// Remembers everything beneath a home, and tells afterwards what changed although it was not meant to.
class Witness final
{
public:
    /// Nothing at all may change.
    explicit Witness(const TemporaryHome &home);

    /// Only what lies at or beneath \a selected may leave; \a trash is the Trash folder it may go to. Both are relative
    /// to the home.
    Witness(const TemporaryHome &home, std::set<std::string> selected, std::string trash = ".local/share/Trash");

    /// What is lost, changed or new outside the Trash, and what of the selection is neither at its place nor in the
    /// Trash as it was. Folders that a move goes through may change their times and counts.
    std::vector<std::string> complaints() const;

private:
    using Inventory = std::map<std::string, TemporaryHome::Entry>;
    using Moved = std::map<ino_t, TemporaryHome::Entry>; ///< What is in the Trash.

    bool isSelected(const std::string &path) const;
    bool isThroughway(const std::string &path) const;
    bool isKept(const std::string &path, const TemporaryHome::Entry &entry, const Inventory &now,
                const Moved &moved) const;

    const TemporaryHome &home;
    std::set<std::string> selected;
    std::set<std::string> throughways;
    std::string trash;
    Inventory before;
};

} // namespace tidlo
