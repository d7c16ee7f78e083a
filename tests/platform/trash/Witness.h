#pragma once

#include "support/TemporaryHome.h"

#include <set>
#include <string>
#include <vector>

namespace tidlo {

/// Remembers everything beneath a home folder, and reports afterwards what changed without permission.
class Witness final
{
public:
    /// Allows no change at all.
    explicit Witness(const TemporaryHome &home);

    /// Allows only that paths at or beneath \a selected leave, to the Trash folder \a trash. Both are relative to the
    /// home folder.
    Witness(const TemporaryHome &home, std::set<std::string> selected, std::string trash = ".local/share/Trash");

    /// What is lost, changed or new outside of the Trash, and what of the selection is neither at its place nor
    /// unchanged in the Trash. Folders that a move goes through may change their times and link counts.
    std::vector<std::string> complaints() const;

private:
    using Inventory = std::map<std::string, TemporaryHome::Entry>;
    using Moved = std::map<ino_t, TemporaryHome::Entry>; ///< The content of the Trash.

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
