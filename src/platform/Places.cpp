#include "platform/Places.h"

#include "platform/Paths.h"

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <unistd.h>

namespace tidlo {

namespace fs = std::filesystem;

namespace {

std::optional<FilePath> canonical(const FilePath &path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.constData(), nullptr), &std::free);
    return resolved ? std::optional(FilePath(resolved.get())) : std::nullopt;
}

bool isLink(const FilePath &path)
{
    char first = 0;
    return readlink(path.constData(), &first, 1) >= 0;
}

/// The common prefix of the places in a folder.
FilePath beginningIn(const FilePath &folder)
{
    return joined(folder, {});
}

/// The spelling of \a place's name in its folder's listing, which may differ from the given one.
FilePath asListed(const FilePath &place)
{
    const fs::path item = place.toStdString();
    const fs::path folder = item.parent_path();
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path() == item)
            return place;
    }
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code none;
        if (!entry->is_symlink(none) && fs::equivalent(entry->path(), item, none))
            return FilePath::fromStdString(entry->path().native());
    }
    return place;
}

} // namespace

FilePath PlaceFinder::placeOf(const FilePath &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return path;
    if (slash < PATH_MAX)
        return joined(resolved(path.left(slash)), path.mid(slash + 1));
    const qsizetype cut = path.lastIndexOf('/', PATH_MAX - 1);
    return joined(resolved(path.left(cut)), path.mid(cut + 1));
}

FilePath PlaceFinder::resolved(const FilePath &folder)
{
    if (folder.isEmpty())
        return "/";
    if (const auto found = known.constFind(folder); found != known.constEnd())
        return *found;
    const FilePath place = placeOf(folder);
    FilePath truth = isLink(place) ? canonical(place).value_or(place) : place;
    known.insert(folder, truth);
    return truth;
}

FilePath absolutePath(FilePath path)
{
    std::error_code error;
    if (!path.startsWith('/'))
        path = joined(FilePath::fromStdString(fs::current_path(error).native()), path);
    while (path.size() > 1 && (path.endsWith('/') || path.endsWith("/.")))
        path.chop(1);
    return path;
}

FilePath placeOfGone(const FilePath &path)
{
    const FilePath whole = absolutePath(path);
    std::error_code error;
    const fs::path place = fs::weakly_canonical(whole.toStdString(), error);
    return error ? PlaceFinder().placeOf(whole) : absolutePath(FilePath::fromStdString(place.native()));
}

std::optional<FilePath> placeOfGiven(const FilePath &path)
{
    std::error_code error;
    const FilePath whole = absolutePath(path);
    if (path.isEmpty() || !fs::exists(fs::symlink_status(whole.toStdString(), error)))
        return std::nullopt;
    const QByteArrayView name = lastPathComponent(path);
    if (name.isEmpty() || name == "." || name == "..") // "link/" names the link's target.
        return canonical(whole);
    const std::optional<FilePath> folder = canonical(joined(whole.left(whole.lastIndexOf('/')), {}));
    return folder ? std::optional(asListed(joined(*folder, FilePath(lastPathComponent(whole).toByteArray()))))
                  : std::nullopt;
}

void PlaceSet::removeWithin(const FilePath &place)
{
    places.erase(place);
    const FilePath beginning = beginningIn(place);
    auto each = places.lower_bound(beginning);
    while (each != places.end() && each->startsWith(beginning))
        each = places.erase(each);
}

bool PlaceSet::hasOneWithin(const FilePath &place) const
{
    if (places.contains(place))
        return true;
    const FilePath beginning = beginningIn(place);
    const auto next = places.lower_bound(beginning);
    return next != places.end() && next->startsWith(beginning);
}

bool PlaceSet::hasOneAround(const FilePath &place) const
{
    if (places.contains(place) || places.contains("/"))
        return true;
    for (qsizetype slash = place.lastIndexOf('/'); slash > 0; slash = place.lastIndexOf('/', slash - 1)) {
        if (places.contains(place.left(slash)))
            return true;
    }
    return false;
}

PlaceSet placesOf(const QList<FilePath> &paths)
{
    PlaceFinder finder;
    PlaceSet places;
    for (const FilePath &path : paths)
        places.insert(finder.placeOf(path));
    return places;
}

} // namespace tidlo
