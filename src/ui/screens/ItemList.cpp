#include "ui/screens/ItemList.h"

#include "platform/VisibleText.h"
#include "ui/screens/PathSearch.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <QtConcurrentRun>

namespace tidlo {

namespace {

QList<QByteArray> searchableTexts(const QList<FilePath> &paths, const std::stop_token &stop)
{
    QList<QByteArray> texts(paths.size());
    for (qsizetype i = 0; i < paths.size() && !stop.stop_requested(); ++i) {
        if (needsSearchableText(paths.at(i)))
            texts[i] = searchableText(paths.at(i));
    }
    return texts;
}

} // namespace

ItemList::ItemList(AppViewModel &shown, QObject *parent)
    : QAbstractListModel(parent)
    , app(shown)
{
    connect(&preparation, &QFutureWatcherBase::finished, this, [this] { searchables = preparation.result(); });
}

ItemList::~ItemList()
{
    preparationStop.request_stop();
}

void ItemList::clear()
{
    show({}, {});
}

void ItemList::show(const QString &title, const QList<FilePath> &list)
{
    shownTitle = title;
    wanted.clear();
    paths = list;
    searchables.clear();
    arrange();
    Q_EMIT filterChanged();
    Q_EMIT shownChanged();
    prepareSearch();
}

QString ItemList::countText() const
{
    const QLocale english(QLocale::English); // As all figures here are written.
    return paths.size() == 1 ? QStringLiteral("1 item")
                             : QStringLiteral("%1 items").arg(english.toString(paths.size()));
}

void ItemList::prepareSearch()
{
    preparationStop.request_stop();
    preparationStop = std::stop_source();
    preparation.setFuture(QtConcurrent::run(searchableTexts, paths, preparationStop.get_token()));
}

void ItemList::arrange()
{
    beginResetModel();
    rows.clear();
    PathSearch search(wanted);
    for (int i = 0; i < paths.size(); ++i) {
        if (search.finds(paths.at(i), searchables.value(i)))
            rows.append(i);
    }
    order(rows);
    endResetModel();
    Q_EMIT countChanged();
}

void ItemList::setFilter(const QString &filter)
{
    if (filter == wanted)
        return;
    wanted = filter;
    arrange();
    Q_EMIT filterChanged();
}

int ItemList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ItemList::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int item = rows.at(index.row());
    switch (role) {
    case PathRole:
        return visibleText(paths.at(item));
    case DetailRole:
        return detailOf(item);
    case TickedRole:
        return isTicked(item);
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemList::roleNames() const
{
    return {{PathRole, "pathText"}, {DetailRole, "detailText"}, {TickedRole, "ticked"}};
}

const FilePath *ItemList::pathAt(int row) const
{
    return row >= 0 && row < count() ? &paths.at(rows.at(row)) : nullptr;
}

void ItemList::showInFiles(int row)
{
    const FilePath *path = pathAt(row);
    if (path)
        app.workspace().showInFiles(*path);
}

void ItemList::copyPath(int row)
{
    const FilePath *path = pathAt(row);
    if (!path)
        return;
    const bool isText = QByteArrayView(*path).isValidUtf8();
    const FilePath copied = isText ? *path : "file://" + path->toPercentEncoding("/");
    QGuiApplication::clipboard()->setText(QString::fromUtf8(copied));
}

} // namespace tidlo
