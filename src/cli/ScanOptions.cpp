#include "cli/ScanOptions.h"

#include "cli/PathArgument.h"
#include "cli/ProgressLine.h"
#include "platform/Places.h"
#include "platform/VisibleText.h"
#include "scanner/OwnPlaces.h"

#include <QSet>

#include <unistd.h>

namespace tidlo {

namespace {

/// Nothing, after an error message, if a path does not exist or cannot be searched.
std::optional<ScanWishes> wishesFrom(const QCommandLineParser &options, const CommandContext &context)
{
    // If the list cannot be read, the person sees a message, and the scan goes on: it moves nothing.
    ScanWishes wishes{.spared = sparedPaths(context).value_or(QList<FilePath>()), .also = {}};
    for (const QString &argument : options.values(QStringLiteral("except"))) {
        const std::optional<FilePath> place = placeOfGiven(pathOfArgument(argument));
        if (!place) {
            complain(QStringLiteral("'%1' does not exist.").arg(argument));
            return std::nullopt;
        }
        wishes.spared.append(*place);
    }
    for (const QString &argument : options.values(QStringLiteral("also"))) {
        const OwnPlace place = ownPlaceAt(context.files, pathOfArgument(argument));
        if (!place.obstacle.isEmpty()) {
            complain(QStringLiteral("'%1' %2.").arg(argument, place.obstacle));
            return std::nullopt;
        }
        wishes.also.append(place.folder);
    }
    return wishes;
}

void nameWhatWasLeftOut(const ScanResult &result)
{
    if (result.leftOut.isEmpty())
        return;
    QString lines = QStringLiteral("Left out:\n");
    QSet<FilePath> named;
    for (const FilePath &path : result.leftOut) {
        if (!named.contains(path))
            lines += QStringLiteral("  %1\n").arg(visibleText(path));
        named.insert(path);
    }
    writeAll(STDERR_FILENO, lines.toUtf8());
}

} // namespace

QList<CommandOption> scanOptions()
{
    return {{"except", "Leave out what is, lies in or holds this. Repeatable.", "path"},
            {"also", "Look for projects in this folder as well. Repeatable.", "folder"}};
}

std::optional<QList<FilePath>> sparedPaths(const CommandContext &context)
{
    std::optional<QList<FilePath>> paths = context.defaults.paths(UserDefaults::spared);
    if (!paths)
        complain(QStringLiteral("What is never to be suggested cannot be read from the preferences."));
    return paths;
}

std::optional<ScanResult> scanAsWanted(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<ScanWishes> wishes = wishesFrom(options, context);
    if (!wishes)
        return std::nullopt;
    const ScanResult result = scanWithProgress(context.scanner, *wishes);
    nameWhatWasLeftOut(result);
    return result;
}

} // namespace tidlo
