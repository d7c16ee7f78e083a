#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/PathArgument.h"
#include "cli/ScanOptions.h"
#include "platform/Places.h"
#include "platform/VisibleText.h"

namespace tidlo {

namespace {

/// The requested change of the list.
struct Change
{
    QList<FilePath> added;
    QList<FilePath> removed;
};

/// Nothing, after an error message, if a path to add does not exist, or a path to remove is not among \a spared.
std::optional<Change> changeFrom(const QCommandLineParser &options, const QList<FilePath> &spared)
{
    Change change;
    for (const QString &argument : options.positionalArguments()) {
        const std::optional<FilePath> place = placeOfGiven(pathOfArgument(argument));
        if (!place) {
            complain(QStringLiteral("'%1' does not exist.").arg(argument));
            return std::nullopt;
        }
        change.added.append(*place);
    }
    PlaceFinder finder;
    for (const QString &argument : options.values(QStringLiteral("remove"))) {
        const FilePath path = pathOfArgument(argument);
        const FilePath place = placeOfGiven(path).value_or(placeOfGone(path));
        const qsizetype before = change.removed.size();
        for (const FilePath &kept : spared) {
            if (!path.isEmpty() && finder.placeOf(kept) == place)
                change.removed.append(kept);
        }
        if (change.removed.size() == before) {
            complain(QStringLiteral("'%1' is not in the list.").arg(argument));
            return std::nullopt;
        }
    }
    return change;
}

bool keep(const Change &change, UserDefaults &defaults)
{
    bool isKept = true;
    for (const FilePath &path : change.removed)
        isKept = defaults.removePath(UserDefaults::spared, path) && isKept;
    for (const FilePath &path : change.added)
        isKept = defaults.addPath(UserDefaults::spared, path) && isKept;
    return isKept;
}

QString textOf(const QList<FilePath> &spared, const FileManager &files)
{
    QString text =
        spared.isEmpty() ? QStringLiteral("Everything may be suggested.\n") : QStringLiteral("Never suggested:\n");
    for (const FilePath &path : spared) {
        const QString mark = files.attributesOfItem(path) ? QString() : QStringLiteral(" (no longer exists)");
        text += QStringLiteral("  %1%2\n").arg(visibleText(path), mark);
    }
    return text;
}

ExitStatus runSpare(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<QList<FilePath>> spared = sparedPaths(context);
    if (!spared)
        return ExitStatus::failed;
    const std::optional<Change> change = changeFrom(options, *spared);
    if (!change)
        return ExitStatus::misused;
    if (!keep(*change, context.defaults)) {
        complain(QStringLiteral("The preferences cannot be written."));
        return ExitStatus::failed;
    }
    return print(textOf(context.defaults.paths(UserDefaults::spared).value_or(QList<FilePath>()), context.files));
}

} // namespace

Command spareCommand()
{
    return {.name = "spare",
            .summary = "Show and change what is never suggested.",
            .description = "Stores paths that are never suggested again, by tidlo-cli and in the window:\n"
                           "what is, lies in or holds one of them is left out of every scan, and is not\n"
                           "moved to the Trash. Shows the resulting list; missing paths are marked.\n"
                           "Nothing is scanned. The exit status is 1 if the list cannot be read or stored, 2\n"
                           "if a path does not exist, or is not in the list; then nothing changes.\n",
            .options = {{"remove", "Take this out of the list. Repeatable.", "path"}},
            .run = runSpare,
            .arguments = "path...",
            .needsThread = false};
}

} // namespace tidlo
