#include "platform/Paths.h"
#include "scanner/FindingRules.h"

#include <algorithm>
#include <array>
#include <utility>

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

/// The walk shows no hidden folder, so those whose names begin with a dot are never met.
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

} // namespace

QList<FilePath> projectRoots(const FilePath &home)
{
    return {joined(home, "Sites"), "/Applications/MAMP/htdocs"};
}

bool looksLikeProject(const EnumeratedEntry &entry)
{
    return std::ranges::any_of(projectMarkers, [&](const char *marker) { return entry.siblingExists(marker); });
}

QList<Finding> developerCandidates(const FileManager &files, const FilePath &home, std::stop_token stop)
{
    const QList<CollectedItem> items = files.enumerate({.roots = projectRoots(home), .visit = visit}, std::move(stop));
    return {makeFinding(FindingKind::projectFolders, items), makeFinding(FindingKind::composerFolders, items),
            makeFinding(FindingKind::buildOutputs, items)};
}

} // namespace tidlo
