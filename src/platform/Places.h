#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QList>

#include <optional>
#include <set>

namespace tidlo {

/// Tells where things truly are: a path with the links in front of its last name resolved, and that name as it is. So
/// two paths that lead to one thing have one place. Remembers the folders it has looked at; one thread at a time.
class PlaceFinder final
{
public:
    /// The place of an absolute \a path. As much of it as cannot be resolved stays as it is: what does not exist, and
    /// what is beyond PATH_MAX, where no link is followed.
    FilePath placeOf(const FilePath &path);

private:
    FilePath resolved(const FilePath &folder);

    QHash<FilePath, FilePath> known; ///< Folders.
};

/// \a path from the root on, taken from the working folder where it is relative, without slashes and dots at its end.
FilePath absolutePath(FilePath path);

/// The place that \a path, which may be relative, leads to although nothing is there: as far as its folders exist their
/// links are resolved; beyond that ".." is what the name in front of it was in.
FilePath placeOfGone(const FilePath &path);

/// The place of what exists at \a path, which may be relative, end with slashes or ".", and be spelled in another case
/// where the file system does not care. Nothing if there is nothing.
std::optional<FilePath> placeOfGiven(const FilePath &path);

/// A set of places, that knows which lie in which.
class PlaceSet final
{
public:
    bool isEmpty() const { return places.empty(); }
    void insert(const FilePath &place) { places.insert(place); }
    /// Takes out \a place and all that lies in it.
    void removeWithin(const FilePath &place);

    bool hasOneWithin(const FilePath &place) const; ///< That is \a place, or lies in it.
    bool hasOneAround(const FilePath &place) const; ///< That is \a place, or holds it.
    /// That is \a place, lies in it, or holds it.
    bool meets(const FilePath &place) const { return hasOneWithin(place) || hasOneAround(place); }

private:
    std::set<FilePath> places;
};

/// The places of \a paths, as they are now.
PlaceSet placesOf(const QList<FilePath> &paths);

} // namespace tidlo
