#include "ui/screens/KeptPaths.h"

#include "platform/VisibleText.h"

#include <QFile>

#include <algorithm>

namespace tidlo {

namespace {

struct KindOfList
{
    QLatin1StringView key;
    const char *detail; ///< The text beneath each path of this list.
};

constexpr std::array kinds{
    KindOfList{UserDefaults::spared, "Never suggested: it, what is in it, and what holds it"},
    KindOfList{UserDefaults::places, "Project folders are looked for in it"},
};

QString unwritable()
{
    return QStringLiteral("The preferences cannot be written.");
}

} // namespace

KeptPaths::KeptPaths(AppViewModel &shown, QObject *parent)
    : ItemList(shown, parent)
{
    connect(&shown, &AppViewModel::proposedPlaceChanged, this, &KeptPaths::proposalChanged);
}

void KeptPaths::inspect()
{
    entries.clear();
    fail({});
    QList<FilePath> paths;
    for (const KindOfList &kind : kinds) {
        const std::optional<QList<FilePath>> kept = shownApp().defaults().paths(kind.key);
        if (!kept)
            fail(QStringLiteral("Not all of it can be read from the preferences."));
        for (const FilePath &path : kept.value_or(QList<FilePath>())) {
            paths.append(path);
            entries.append({.list = kind.key, .path = path});
        }
    }
    show(QStringLiteral("Never suggested, and looked into"), paths);
}

void KeptPaths::clear()
{
    entries.clear();
    ItemList::clear();
}

QString KeptPaths::summary() const
{
    const qsizetype spared = std::ranges::count(entries, UserDefaults::spared, &Entry::list);
    const qsizetype places = entries.size() - spared;
    return QStringLiteral("%1 never suggested · %2 looked into as well").arg(spared).arg(places);
}

QString KeptPaths::detailOf(int item) const
{
    return QLatin1StringView(std::ranges::find(kinds, entries.at(item).list, &KindOfList::key)->detail);
}

void KeptPaths::toggle(int row)
{
    if (row < 0 || row >= count())
        return;
    Entry &entry = entries[shownItems().at(row)];
    UserDefaults &defaults = shownApp().defaults();
    const bool isDone =
        entry.isKept ? defaults.removePath(entry.list, entry.path) : defaults.addPath(entry.list, entry.path);
    fail(isDone ? QString() : unwritable());
    if (!isDone)
        return;
    entry.isKept = !entry.isKept;
    Q_EMIT dataChanged(index(row), index(row), {TickedRole});
}

void KeptPaths::fail(const QString &text)
{
    failure = text;
    Q_EMIT noteChanged();
}

QString KeptPaths::question() const
{
    const std::optional<OwnPlace> place = shownApp().proposedPlace();
    return place && place->obstacle.isEmpty()
               ? QStringLiteral("Also look for project folders in “%1”?").arg(visibleText(place->folder))
               : QString();
}

QString KeptPaths::refusal() const
{
    const std::optional<OwnPlace> place = shownApp().proposedPlace();
    return place && !place->obstacle.isEmpty()
               ? QStringLiteral("“%1” %2.").arg(visibleText(place->folder), place->obstacle)
               : QString();
}

void KeptPaths::propose(const QUrl &folder)
{
    const QByteArray path = folder.isLocalFile() ? folder.path(QUrl::FullyEncoded).toLatin1() : QByteArray();
    shownApp().proposePlace(FilePath::fromPercentEncoding(path)); // The bytes of the path, which need not be text.
}

void KeptPaths::answer(bool isWanted)
{
    fail(shownApp().answerProposal(isWanted) ? QString() : unwritable());
}

} // namespace tidlo
