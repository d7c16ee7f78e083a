#include "platform/Paths.h"
#include "platform/Trash.h"
#include "scanner/FindingRules.h"
#include "scanner/OwnPlaces.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr std::array projectMarkers{"package.json",   "composer.json", "vite.config.js",
                                    "next.config.js", "Package.swift", "pubspec.yaml"};

bool always(const EnumeratedEntry &)
{
    return true;
}

bool liesBesideComposerFile(const EnumeratedEntry &folder)
{
    return folder.siblingExists("composer.json");
}

struct GeneratedFolder
{
    QByteArrayView name; ///< Compared exactly, with case.
    FindingKind kind;
    bool (*counts)(const EnumeratedEntry &folder);
};

/// The walk shows no hidden folder, so no name that begins with a dot would ever match.
constexpr std::array generatedFolders{
    GeneratedFolder{"node_modules", FindingKind::projectFolders, always},
    GeneratedFolder{".next", FindingKind::projectFolders, always},
    GeneratedFolder{".nuxt", FindingKind::projectFolders, always},
    GeneratedFolder{".turbo", FindingKind::projectFolders, always},
    GeneratedFolder{".parcel-cache", FindingKind::projectFolders, always},
    GeneratedFolder{"coverage", FindingKind::projectFolders, always},
    GeneratedFolder{"vendor", FindingKind::composerFolders, liesBesideComposerFile},
    GeneratedFolder{"build", FindingKind::buildOutputs, looksLikeProject},
    GeneratedFolder{"dist", FindingKind::buildOutputs, looksLikeProject},
};

Visit visit(const EnumeratedEntry &folder)
{
    const auto row = std::ranges::find(generatedFolders, folder.name(), &GeneratedFolder::name);
    if (row == generatedFolders.end() || !row->counts(folder))
        return {};
    return {.action = Visit::Action::collect, .group = qToUnderlying(row->kind)};
}

/// Outside the usual folders for web and app projects, a folder with such a name may be anything.
Visit visitInOwnPlace(const EnumeratedEntry &folder)
{
    const Visit visited = visit(folder);
    return visited.action == Visit::Action::collect && !looksLikeProject(folder) ? Visit() : visited;
}

QList<CollectedItem> itemsBeneath(const ScanContext &context, const QList<FilePath> &roots,
                                  Visit (*visit)(const EnumeratedEntry &))
{
    return context.files.enumerate({.roots = roots,
                                    .visit = visit,
                                    .leavesOut = [&context](const FilePath &path) { return context.spares(path); },
                                    .notes = context.notes},
                                   context.stop);
}

/// A project that is already in a Trash does not count.
QList<CollectedItem> itemsInOwnPlaces(const ScanContext &context, const QList<FilePath> &roots)
{
    QList<CollectedItem> items = itemsBeneath(context, roots, visitInOwnPlace);
    items.removeIf([&](const CollectedItem &item) { return liesInTrash(item.path, context.home); });
    return items;
}

QList<FilePath> ownPlaces(const ScanContext &context)
{
    QList<FilePath> roots = context.also;
    roots.removeIf(
        [&](const FilePath &folder) { return ownPlaceObstacle(context.files, folder, context.notes).has_value(); });
    return roots;
}

/// Those of \a more that \a items do not contain yet, in whole or in part; of nested ones the outermost.
QList<CollectedItem> unmet(const QList<CollectedItem> &items, const QList<CollectedItem> &more)
{
    PlaceFinder finder;
    PlaceSet met;
    for (const CollectedItem &item : items)
        met.insert(finder.placeOf(item.path));
    PlaceSet all;
    for (const CollectedItem &item : more)
        all.insert(finder.placeOf(item.path));
    QList<CollectedItem> result;
    for (const CollectedItem &item : more) {
        const FilePath place = finder.placeOf(item.path);
        const FilePath folder = place.left(place.lastIndexOf('/'));
        if (met.hasOneWithin(place) || met.hasOneAround(place) || all.hasOneAround(folder))
            continue;
        met.insert(place);
        result.append(item);
    }
    return result;
}

} // namespace

QList<FilePath> projectRoots(const FilePath &home)
{
    return {joined(home, "Sites"), "/Applications/MAMP/htdocs"};
}

bool looksLikeProject(const EnumeratedEntry &entry)
{
    return std::ranges::any_of(projectMarkers, [&](const char *marker) { return entry.siblingExists(marker); });
}

QList<Finding> developerCandidates(const ScanContext &context)
{
    QList<CollectedItem> items = itemsBeneath(context, projectRoots(context.home), visit);
    if (const QList<FilePath> roots = ownPlaces(context); !roots.isEmpty())
        items += unmet(items, itemsInOwnPlaces(context, roots));
    return {makeFinding(FindingKind::projectFolders, items), makeFinding(FindingKind::composerFolders, items),
            makeFinding(FindingKind::buildOutputs, items)};
}

} // namespace tidlo
