#include "Witness.h"

#include <algorithm>

namespace tidlo {

namespace {

bool isAtOrBeneath(const std::string &path, const std::string &folder)
{
    return path == folder || folder == "." || path.starts_with(folder + '/');
}

std::string parentOf(const std::string &path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

bool isSameThing(const TemporaryHome::Entry &one, const TemporaryHome::Entry &other)
{
    return one.inode == other.inode && one.mode == other.mode;
}

bool isUntouched(const TemporaryHome::Entry &one, const TemporaryHome::Entry &other)
{
    return isSameThing(one, other) && one.size == other.size && one.blocks == other.blocks &&
           one.modified == other.modified && one.links == other.links;
}

/// The access time of a link shows that it was followed, whatever the reason; so it is left out.
TemporaryHome::Entry withoutFollowing(TemporaryHome::Entry entry)
{
    if (S_ISLNK(entry.mode))
        entry.accessed = {};
    return entry;
}

} // namespace

Witness::Witness(const TemporaryHome &home)
    : Witness(home, {}, {})
{}

Witness::Witness(const TemporaryHome &home, std::set<std::string> selected, std::string trash)
    : home(home)
    , selected(std::move(selected))
    , trash(std::move(trash))
    , before(home.inventory())
{
    for (const std::string &item : this->selected)
        throughways.insert(parentOf(item));
}

std::vector<std::string> Witness::complaints() const
{
    std::vector<std::string> found;
    const Inventory now = home.inventory();
    Moved moved;
    for (const auto &[path, entry] : now) {
        if (isAtOrBeneath(path, trash + "/files"))
            moved.emplace(entry.inode, entry);
    }
    for (const auto &[path, entry] : before) {
        if (!isKept(path, entry, now, moved))
            found.push_back("lost or changed: " + path);
    }
    for (const auto &[path, entry] : now) {
        const bool isOfTrash = !trash.empty() && (isAtOrBeneath(path, trash) || isAtOrBeneath(trash, path));
        if (!before.contains(path) && !isOfTrash)
            found.push_back("new: " + path);
    }
    return found;
}

bool Witness::isKept(const std::string &path, const TemporaryHome::Entry &entry, const Inventory &now,
                     const Moved &moved) const
{
    const auto there = now.find(path);
    if (isThroughway(path))
        return there != now.end() && isSameThing(there->second, entry);
    if (!isSelected(path))
        return there != now.end() && withoutFollowing(there->second) == withoutFollowing(entry);
    if (there != now.end())
        return isUntouched(there->second, entry);
    return moved.contains(entry.inode) && isUntouched(moved.at(entry.inode), entry);
}

bool Witness::isSelected(const std::string &path) const
{
    for (std::string upper = path; upper != "."; upper = parentOf(upper)) {
        if (selected.contains(upper))
            return true;
    }
    return false;
}

bool Witness::isThroughway(const std::string &path) const
{
    if (trash.empty())
        return false;
    if (isAtOrBeneath(trash, path) || path == trash + "/files" || path == trash + "/info")
        return true;
    return throughways.contains(path);
}

} // namespace tidlo
