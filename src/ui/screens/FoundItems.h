#pragma once

#include "app/AppViewModel.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

/// What one finding consists of: a row for each of its paths, with its size as soon as it is known. Sizes are measured
/// on a thread of its own while the main thread goes on; a row shows none until then. Changes nothing. Main thread.
class FoundItems : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(AppViewModel *app READ app WRITE setApp NOTIFY appChanged REQUIRED)
    Q_PROPERTY(QString title READ title NOTIFY inspectedChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY summaryChanged)
    /// Only paths that contain it are shown, whatever the case of their letters.
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(bool largestFirst READ isLargestFirst WRITE setLargestFirst NOTIFY orderChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        PathRole = Qt::UserRole,
        SizeRole,
    };

    explicit FoundItems(QObject *parent = nullptr);
    ~FoundItems() override;

    AppViewModel *app() const { return source; }
    void setApp(AppViewModel *app);
    QString title() const { return shownTitle; }
    QString summary() const; ///< How many there are, and their size as far as it is known.
    QString filter() const { return wanted; }
    void setFilter(const QString &filter);
    bool isLargestFirst() const { return sorted; }
    void setLargestFirst(bool largestFirst); ///< Otherwise they are in the order they were found.
    int count() const { return static_cast<int>(rows.size()); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Shows the items of the candidate \a id and begins to measure them; none if there is no such candidate.
    Q_INVOKABLE void inspect(const QUuid &id);

    /// Shows nothing any more and stops measuring.
    Q_INVOKABLE void clear();

    /// Shows the item in the desktop's file browser; out of range it does nothing.
    Q_INVOKABLE void showInFiles(int row);

    /// Puts the item's path on the clipboard; one that is no text, as a URL. Out of range it does nothing.
    Q_INVOKABLE void copyPath(int row);

Q_SIGNALS:
    void appChanged();
    void inspectedChanged();
    void summaryChanged();
    void filterChanged();
    void orderChanged();
    void countChanged();

private:
    static constexpr qint64 unknown = -1;

    void show(const CleanupCandidate &candidate);
    void prepareSearch();
    void measure();
    void take(qsizetype first, const QList<qint64> &measured);
    void arrange();
    void sortRows();
    void putLargestFirst();
    const FilePath *pathAt(int row) const;

    QPointer<AppViewModel> source;
    QString shownTitle;
    QString wanted;
    bool sorted = false;
    QList<FilePath> paths;
    QList<QByteArray> searchables; ///< Texts of the paths, where one is needed; none at all until they are made.
    QList<qint64> sizes;           ///< Of each path; unknown until it is measured.
    qsizetype measuredCount = 0;
    QList<int> rows; ///< Which of the paths is shown where.
    QTimer sorting;  ///< While sizes come in, rows are sorted now and then, not for each.
    std::stop_source work;
    QThreadPool thread;
};
