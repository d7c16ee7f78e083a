#include "ui/screens/FoundItems.h"

#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"
#include "ui/screens/PathSearch.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLocale>

#include <algorithm>
#include <numeric>

namespace {

/// How many paths to measure before telling, so that news come about this often.
class BatchSize final
{
public:
    qsizetype next() const { return size; }

    void took(qint64 milliseconds)
    {
        constexpr qint64 aim = 40;
        constexpr qsizetype most = 4096;
        size = milliseconds < aim ? std::min(size * 2, most) : std::max<qsizetype>(size / 2, 1);
    }

private:
    qsizetype size = 8;
};

} // namespace

FoundItems::FoundItems(QObject *parent)
    : QAbstractListModel(parent)
    , sorting(this)
{
    thread.setMaxThreadCount(1);
    sorting.setSingleShot(true);
    sorting.setInterval(400);
    connect(&sorting, &QTimer::timeout, this, &FoundItems::sortRows);
}

FoundItems::~FoundItems()
{
    work.request_stop();
    thread.waitForDone();
}

void FoundItems::setApp(AppViewModel *app)
{
    source = app;
    Q_EMIT appChanged();
}

void FoundItems::inspect(const QUuid &id)
{
    clear();
    if (!source)
        return;
    const QList<CleanupCandidate> candidates = source->candidates();
    const auto candidate = std::ranges::find(candidates, id, &CleanupCandidate::id);
    if (candidate != candidates.end())
        show(*candidate);
}

void FoundItems::clear()
{
    work.request_stop();
    show({});
}

void FoundItems::show(const CleanupCandidate &candidate)
{
    shownTitle = visibleText(candidate.title);
    wanted.clear();
    paths = candidate.paths;
    searchables.clear();
    sizes = QList<qint64>(paths.size(), unknown);
    measuredCount = 0;
    arrange();
    Q_EMIT filterChanged();
    Q_EMIT inspectedChanged();
    Q_EMIT summaryChanged();
    if (paths.isEmpty())
        return;
    work = std::stop_source();
    prepareSearch();
    measure();
}

void FoundItems::prepareSearch()
{
    thread.start([this, list = paths, stop = work.get_token()] {
        QList<QByteArray> texts(list.size());
        for (qsizetype i = 0; i < list.size() && !stop.stop_requested(); ++i) {
            if (needsSearchableText(list.at(i)))
                texts[i] = searchableText(list.at(i));
        }
        const auto tell = [this, texts, stop] {
            if (!stop.stop_requested()) // Else other items are shown by now.
                searchables = texts;
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    });
}

void FoundItems::measure()
{
    thread.start([this, files = source->fileManager(), list = paths, stop = work.get_token()] {
        BatchSize batch;
        for (qsizetype first = 0; first < list.size() && !stop.stop_requested();) {
            QElapsedTimer timer;
            timer.start();
            const QList<FilePath> some = list.mid(first, batch.next());
            const QList<qint64> measured = files->allocatedSizes(some, stop);
            const auto tell = [this, first, measured, stop] {
                if (!stop.stop_requested())
                    take(first, measured);
            };
            QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
            batch.took(timer.elapsed());
            first += some.size();
        }
    });
}

void FoundItems::take(qsizetype first, const QList<qint64> &measured)
{
    std::ranges::copy(measured, sizes.begin() + first);
    measuredCount += measured.size();
    Q_EMIT summaryChanged();
    if (rows.isEmpty())
        return;
    Q_EMIT dataChanged(index(0), index(count() - 1), {SizeRole});
    if (sorted && !sorting.isActive())
        sorting.start();
}

void FoundItems::arrange()
{
    sorting.stop();
    beginResetModel();
    rows.clear();
    PathSearch search(wanted);
    for (int i = 0; i < paths.size(); ++i) {
        if (search.finds(paths.at(i), searchables.value(i)))
            rows.append(i);
    }
    if (sorted)
        putLargestFirst();
    endResetModel();
    Q_EMIT countChanged();
}

void FoundItems::sortRows()
{
    // No reset: the view stays where it is, and its rows show what stands there now.
    putLargestFirst();
    Q_EMIT dataChanged(index(0), index(count() - 1));
}

void FoundItems::putLargestFirst()
{
    std::ranges::stable_sort(rows, std::greater(), [this](int row) { return sizes.at(row); });
}

QString FoundItems::summary() const
{
    const QLocale english(QLocale::English); // As all figures here are written.
    const QString items =
        paths.size() == 1 ? QStringLiteral("1 item") : QStringLiteral("%1 items").arg(english.toString(paths.size()));
    if (measuredCount < paths.size())
        return QStringLiteral("%1 · %2 measured").arg(items, english.toString(measuredCount));
    const qint64 sum = std::accumulate(sizes.begin(), sizes.end(), qint64(0), checkedSum);
    return QStringLiteral("%1 · %2").arg(items, byteCountText(sum));
}

void FoundItems::setFilter(const QString &filter)
{
    if (filter == wanted)
        return;
    wanted = filter;
    arrange();
    Q_EMIT filterChanged();
}

void FoundItems::setLargestFirst(bool largestFirst)
{
    if (largestFirst == sorted)
        return;
    sorted = largestFirst;
    arrange();
    Q_EMIT orderChanged();
}

int FoundItems::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant FoundItems::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int item = rows.at(index.row());
    switch (role) {
    case PathRole:
        return visibleText(paths.at(item));
    case SizeRole:
        return sizes.at(item) == unknown ? QString() : byteCountText(sizes.at(item));
    default:
        return {};
    }
}

QHash<int, QByteArray> FoundItems::roleNames() const
{
    return {{PathRole, "pathText"}, {SizeRole, "sizeText"}};
}

const FilePath *FoundItems::pathAt(int row) const
{
    return row >= 0 && row < count() ? &paths.at(rows.at(row)) : nullptr;
}

void FoundItems::showInFiles(int row)
{
    const FilePath *path = pathAt(row);
    if (source && path)
        source->workspace().showInFiles(*path);
}

void FoundItems::copyPath(int row)
{
    const FilePath *path = pathAt(row);
    if (!path)
        return;
    const bool isText = QByteArrayView(*path).isValidUtf8();
    const FilePath copied = isText ? *path : "file://" + path->toPercentEncoding("/");
    QGuiApplication::clipboard()->setText(QString::fromUtf8(copied));
}
