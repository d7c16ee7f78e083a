#include "platform/Paths.h"
#include "scanner/FindingRules.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr std::array searchedFolders{"Downloads", "Desktop", "Documents", "Movies", "Pictures", "Music"};

/// Nothing beneath a folder with one of these names counts; a file with such a name does.
constexpr std::array<QByteArrayView, 2> excludedFolders{"node_modules", ".git"};
constexpr QByteArrayView excludedSuffix(".app");

constexpr qint64 smallestLargeFile = qint64(100) * 1024 * 1024;
constexpr std::chrono::days untouchedAge(60);

bool isExcludedFolder(QByteArrayView name)
{
    return std::ranges::find(excludedFolders, name) != excludedFolders.end();
}

Visit visit(const EnumeratedEntry &entry, FileTime cutOff)
{
    using enum Visit::Action;
    const FileAttributes &attributes = entry.attributes();
    if (entry.name().endsWith(excludedSuffix))
        return {.action = skip};
    if (attributes.kind == FileKind::directory)
        return {.action = isExcludedFolder(entry.name()) ? skip : walkOn};
    const bool qualifies = attributes.size && *attributes.size >= smallestLargeFile && attributes.modified &&
                           *attributes.modified < cutOff;
    return {.action = qualifies ? collect : skip, .group = qToUnderlying(FindingKind::largeFiles)};
}

/// Empty if the home folder itself lies in an excluded folder: then everything in it is excluded.
QList<FilePath> rootsWithin(const FilePath &home)
{
    QList<FilePath> roots;
    if (std::ranges::any_of(home.split('/'), isExcludedFolder))
        return roots;
    for (const char *folder : searchedFolders)
        roots.append(joined(home, folder));
    return roots;
}

} // namespace

QList<Finding> oldLargeFilesCandidates(const ScanContext &context, FileTime now)
{
    const FileTime cutOff = now - untouchedAge;
    const DeepEnumeration enumeration{
        .roots = rootsWithin(context.home),
        .shown = DeepEnumeration::Shown::everything,
        .visit = [cutOff](const EnumeratedEntry &entry) { return visit(entry, cutOff); },
        .leavesOut = [&context](const FilePath &path) { return context.spares(path); },
        .notes = context.notes,
    };
    return {makeFinding(FindingKind::largeFiles, context.files.enumerate(enumeration, context.stop))};
}

} // namespace tidlo
