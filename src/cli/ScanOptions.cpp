#include "cli/ScanOptions.h"

#include "cli/PathArgument.h"
#include "cli/ProgressLine.h"
#include "platform/Places.h"
#include "platform/VisibleText.h"
#include "scanner/OwnPlaces.h"

#include <unistd.h>

namespace tidlo {

namespace {

/// Nothing, having complained, if they name what does not exist or cannot be looked into.
std::optional<ScanWishes> wishesFrom(const QCommandLineParser &options, const CommandContext &context)
{
    ScanWishes wishes{.spared = context.defaults.paths(UserDefaults::spared).value_or(QList<FilePath>()), .also = {}};
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
    for (const FilePath &path : result.leftOut)
        lines += QStringLiteral("  %1\n").arg(visibleText(path));
    writeAll(STDERR_FILENO, lines.toUtf8());
}

} // namespace

QList<CommandOption> scanOptions()
{
    return {{"except", "Leave out what is, lies in or holds this. Repeatable.", "path"},
            {"also", "Look for project folders in this one, too. Repeatable.", "folder"}};
}

bool knowsWhatIsSpared(const CommandContext &context)
{
    if (context.defaults.paths(UserDefaults::spared))
        return true;
    complain(QStringLiteral("What is never to be suggested cannot be read from the preferences."));
    return false;
}

std::optional<ScanResult> scanAsWanted(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<ScanWishes> wishes = wishesFrom(options, context);
    if (!wishes)
        return std::nullopt;
    knowsWhatIsSpared(context); // If not, the person is told, and the scan goes on: it moves nothing.
    const ScanResult result = scanWithProgress(context.scanner, *wishes);
    nameWhatWasLeftOut(result);
    return result;
}

} // namespace tidlo
