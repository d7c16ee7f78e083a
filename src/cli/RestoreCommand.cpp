#include "cli/AskedMove.h"
#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "cli/FindingsText.h"
#include "cli/PathArgument.h"
#include "cli/ProgressLine.h"
#include "cli/RestoreOutcome.h"
#include "cli/StopOnSignal.h"
#include "cli/TrashText.h"
#include "platform/Places.h"
#include "platform/VisibleText.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

namespace tidlo {

namespace {

/// The request of the person.
struct RestoreWishes
{
    QStringList paths;
    std::optional<FileTime> since;
    bool all = false;
    MoveWishes move;

    bool isListing() const { return paths.isEmpty() && !all; }
};

/// What is wrong with \a options; nothing if they are valid.
std::optional<QString> complaintAbout(const QCommandLineParser &options, const RestoreWishes &wishes)
{
    const bool hasSince = options.isSet(QStringLiteral("since"));
    if (hasSince && !wishes.since)
        return QStringLiteral("A time is a number of minutes (10min), hours (2h) or days (3d) ago, today, or a date.");
    if (wishes.paths.contains(QString()))
        return QStringLiteral("A path is empty.");
    if (wishes.all && (!hasSince || !wishes.paths.isEmpty()))
        return QStringLiteral("--all needs --since, and takes no paths.");
    if (wishes.isListing() && (wishes.move.dryRun || options.isSet(QStringLiteral("yes"))))
        return QStringLiteral("Name what to put back, or add --since and --all.");
    return std::nullopt;
}

RestoreWishes restoreWishes(const QCommandLineParser &options)
{
    return {.paths = options.positionalArguments(),
            .since = momentOf(options.value(QStringLiteral("since")), QDateTime::currentDateTime()),
            .all = options.isSet(QStringLiteral("all")),
            .move = moveWishes(options)};
}

/// An interruption ends the program by its signal: reading changes nothing.
TrashContents contentsOf(FileSizeScanner &scanner, const RestoreWishes &wishes)
{
    ProgressLine line;
    line.show(QStringLiteral("Reading the Trash"));
    TrashContents contents = QCoro::waitFor(scanner.trashedItems());
    if (wishes.since)
        contents.items.removeIf([&](const ListedItem &item) { return !item.moved || *item.moved < *wishes.since; });
    return contents;
}

void complainOfUnread(const TrashContents &contents)
{
    for (const UnreadTrash &trash : contents.unread)
        complain(visibleText(trash.path) + QStringLiteral(": ") + trash.reason);
}

nlohmann::ordered_json jsonOf(const TrashContents &contents)
{
    nlohmann::ordered_json items = nlohmann::ordered_json::array();
    for (const ListedItem &each : contents.items) {
        nlohmann::ordered_json item;
        item["path"] = each.item.origin.toStdString();
        item["moved"] = each.moved ? nlohmann::ordered_json(timeText(each).replace(u' ', u'T').toStdString())
                                   : nlohmann::ordered_json();
        item["bytes"] = each.bytes;
        item["trash"] = each.item.trash.toStdString();
        item["name"] = each.item.name.toStdString();
        items.push_back(std::move(item));
    }
    nlohmann::ordered_json json;
    json["items"] = std::move(items);
    json["unknown"] = contents.unknown;
    json["unread"] = nlohmann::ordered_json::array();
    for (const UnreadTrash &trash : contents.unread)
        json["unread"].push_back({{"trash", trash.path.toStdString()}, {"reason", trash.reason.toStdString()}});
    return json;
}

QString textOf(const TrashContents &contents, const RestoreWishes &wishes)
{
    const QString nothing = !contents.unread.isEmpty() ? QStringLiteral("Nothing was found in the Trash.\n")
                            : wishes.since             ? QStringLiteral("Nothing was moved to the Trash since then.\n")
                                                       : QStringLiteral("The Trash is empty.\n");
    const QString unknown = QStringLiteral("%1 more: the Trash does not say where they were.\n");
    return (contents.items.isEmpty() && (contents.unknown == 0 || wishes.since)
                ? nothing
                : trashText(contents.items, terminalAt(STDOUT_FILENO))) +
           (contents.unknown == 0 || wishes.since ? QString() : unknown.arg(contents.unknown));
}

ExitStatus list(const TrashContents &contents, const RestoreWishes &wishes)
{
    const ExitStatus printed = wishes.move.json ? print(jsonOf(contents)) : print(textOf(contents, wishes));
    complainOfUnread(contents);
    if (printed != ExitStatus::succeeded)
        return printed;
    return contents.unread.isEmpty() ? ExitStatus::succeeded : ExitStatus::failed;
}

QString selectionText(const RestoreSelection &selection, const MoveWishes &wishes, const Terminal &terminal)
{
    QString text;
    if (!selection.items.isEmpty())
        text += trashText(selection.items, terminal);
    if (!selection.others.isEmpty())
        text += QStringLiteral("\nEarlier ones of the same places, which stay in the Trash:\n") +
                trashText(selection.others, terminal);
    if (wishes.dryRun)
        text += QStringLiteral("\nDry run: %1 would be put back.\n").arg(selection.text());
    return text;
}

bool mayBeRestored(const RestoreSelection &selection, const MoveWishes &wishes)
{
    if (wishes.dryRun || selection.items.isEmpty())
        return false;
    return !wishes.question ||
           agreesTo(
               QStringLiteral("Put back %1? The Trash does not say which program moved them.").arg(selection.text()));
}

RestoreOutcome restore(const RestoreSelection &selection, CommandContext &context)
{
    ProgressLine line;
    const StopOnSignal stop([&line] { line.show(QStringLiteral("Stopping after the current item")); });
    line.show(QStringLiteral("Putting back %1").arg(selection.text()));
    QList<TrashedItem> items;
    for (const ListedItem &each : selection.items)
        items.append(each.item);
    const Restoration restoration = QCoro::waitFor(context.scanner.restore(items, stop.token()));
    return {.selection = selection, .restoration = restoration, .signal = stop.signal()};
}

RestoreSelection selectionFrom(const TrashContents &contents, const RestoreWishes &wishes)
{
    QList<FilePath> places;
    for (const QString &argument : wishes.paths) {
        const FilePath path = pathOfArgument(argument);
        places.append(placeOfGiven(path).value_or(placeOfGone(path)));
    }
    return restoreSelection(contents.items, places);
}

ExitStatus runRestore(const QCommandLineParser &options, CommandContext &context)
{
    const RestoreWishes wishes = restoreWishes(options);
    if (const auto complaint = complaintAbout(options, wishes))
        return reportMisuse(restoreCommand(), *complaint);
    if (!wishes.isListing() && !canAskAsWished(wishes.move, QStringLiteral("put back")))
        return ExitStatus::misused;
    const TrashContents contents = contentsOf(context.scanner, wishes);
    if (wishes.isListing())
        return list(contents, wishes);

    complainOfUnread(contents);
    const RestoreSelection selection = selectionFrom(contents, wishes);
    const auto text = [&](const Terminal &terminal) { return selectionText(selection, wishes.move, terminal); };
    if (const ExitStatus status = showSelection(wishes.move, text); status != ExitStatus::succeeded)
        return status;
    const RestoreOutcome outcome = mayBeRestored(selection, wishes.move)
                                       ? restore(selection, context)
                                       : RestoreOutcome{.selection = selection, .restoration = {}};
    const ExitStatus status = printOutcome(outcome, wishes.move);
    return status == ExitStatus::succeeded && !contents.unread.isEmpty() ? ExitStatus::failed : status;
}

} // namespace

Command restoreCommand()
{
    return {.name = "restore",
            .summary = "Show what the Trash holds, and put back what you name.",
            .description = "Shows what your Trashes hold, the last moved first, whichever program moved it.\n"
                           "With paths it puts back what was at or beneath them, after a question; if\n"
                           "several items were at one place, the one that was moved last. Nothing is ever\n"
                           "replaced, and missing folders are made. Ctrl-C stops between two items.\n"
                           "\n"
                           "The exit status is 0 if everything was put back, 1 if something stayed or a\n"
                           "Trash could not be read, 2 if there is no terminal to ask at, 130 after Ctrl-C.\n",
            .options = {{"since", "Only what was moved since then: 10min, 2h, 3d, today, a date.", "time"},
                        {"all", "Put back all that was moved since then."},
                        {"yes", "Put back without a question."},
                        {"dry-run", "Show what would be put back, and move nothing."},
                        {"json", "Print one JSON object, and nothing else."}},
            .run = runRestore,
            .arguments = "path..."};
}

} // namespace tidlo
