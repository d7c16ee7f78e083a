#include "scanner/OwnPlaces.h"

#include "platform/Paths.h"
#include "platform/Places.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

OwnPlace ownPlaceAt(const FileManager &files, const FilePath &given)
{
    if (given.isEmpty())
        return {.folder = given, .obstacle = QStringLiteral("is not a folder")};
    const std::optional<FilePath> folder = placeOfGiven(joined(given, {})); // With the slash, a link is followed.
    if (!folder)
        return {.folder = given, .obstacle = QStringLiteral("is not a folder")};
    return {.folder = *folder, .obstacle = ownPlaceObstacle(files, *folder).value_or(QString())};
}

std::optional<QString> ownPlaceObstacle(const FileManager &files, const FilePath &folder, WalkNotes *notes)
{
    const FilePath home = files.homeDirectoryForCurrentUser();
    const std::optional<FileAttributes> attributes = files.attributesOfItem(folder);
    if (!attributes || attributes->kind != FileKind::directory)
        return QStringLiteral("is not a folder");
    if (isSameOrWithin(home, folder))
        return QStringLiteral("is the home folder, or holds it");
    if (isSameOrWithin(folder, joined(home, "Library")))
        return QStringLiteral("is the Library of the home folder, or lies in it");
    if (liesInTrash(folder, home))
        return QStringLiteral("is a Trash, or lies in one");
    struct stat status;
    if (stat(folder.constData(), &status) != 0 || status.st_uid != geteuid())
        return QStringLiteral("belongs to another user");
    if (!files.contentsOfDirectory(folder, notes))
        return QStringLiteral("cannot be read");
    return std::nullopt;
}

} // namespace tidlo
