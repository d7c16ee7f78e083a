#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QList>

#include <optional>
#include <set>

namespace tidlo {

/// Finds the real place of a path: all links before its last name are resolved, and that name stays as it is. So all
/// paths to one item have the same place. Caches the folders it has looked at; one thread at a time.
class PlaceFinder final
{
public:
    /// The place of an absolute \a path. Parts that cannot be resolved stay as they are: those that do not exist, and
    /// those beyond PATH_MAX, where no link is followed.
    FilePath placeOf(const FilePath &path);

private:
    FilePath resolved(const FilePath &folder);

    QHash<FilePath, FilePath> known; ///< Folders.
};

/// \a path as an absolute path, taken from the working folder if it is relative, without slashes and dots at its end.
FilePath absolutePath(FilePath path);

/// The place to which \a path, which may be relative, would lead if something existed there: links are resolved as far
/// as its folders exist; beyond that ".." removes the name before it.
FilePath placeOfGone(const FilePath &path);

/// The place of an existing item at \a path, which may be relative, end with slashes or ".", and be spelled in another
/// case if the file system ignores case. Nothing if the item does not exist.
std::optional<FilePath> placeOfGiven(const FilePath &path);

/// A set of places that also knows which places lie in others.
class PlaceSet final
{
public:
    bool isEmpty() const { return places.empty(); }
    void insert(const FilePath &place) { places.insert(place); }
    /// Removes \a place and all places in it.
    void removeWithin(const FilePath &place);

    bool hasOneWithin(const FilePath &place) const; ///< Whether the set contains \a place or a place in it.
    bool hasOneAround(const FilePath &place) const; ///< Whether the set contains \a place or a place that holds it.
    /// Whether the set contains \a place, a place in it, or a place that holds it.
    bool meets(const FilePath &place) const { return hasOneWithin(place) || hasOneAround(place); }

private:
    std::set<FilePath> places;
};

/// The current places of \a paths.
PlaceSet placesOf(const QList<FilePath> &paths);

} // namespace tidlo
