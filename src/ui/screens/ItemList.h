#pragma once

#include "app/AppViewModel.h"

#include <QAbstractListModel>
#include <QFutureWatcher>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// Items on the disk that can be searched, shown in the file browser and copied: a row for each path that contains the
/// search text, with a detail beside it. Rows stay in place unless the person searches or sorts. Changes nothing on the
/// disk. Main thread.
class ItemList : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is what lists of items have in common.")
    Q_PROPERTY(QString title READ title NOTIFY shownChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY shownChanged)
    /// Only paths that contain this text are shown; upper and lower case are the same.
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool tickable READ isTickable NOTIFY shownChanged)

public:
    enum Role {
        PathRole = Qt::UserRole,
        DetailRole,
        TickedRole,
    };

    /// \a shown must outlive it.
    explicit ItemList(AppViewModel &shown, QObject *parent = nullptr);
    ~ItemList() override;

    QString title() const { return shownTitle; }
    virtual QString summary() const = 0; ///< Of all items, whatever the search text.
    QString filter() const { return wanted; }
    void setFilter(const QString &filter);
    int count() const { return static_cast<int>(rows.size()); }
    virtual bool isTickable() const { return false; } ///< Whether items can be ticked.

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Shows nothing any more.
    Q_INVOKABLE virtual void clear();

    /// Ticks the item, or unticks it, if the list is tickable; out of range it does nothing.
    Q_INVOKABLE virtual void toggle(int /*row*/) {}

    /// Shows the item in the desktop's file browser; out of range it does nothing.
    Q_INVOKABLE void showInFiles(int row);

    /// Copies the item's path to the clipboard; a path that is no text, as a URL. Out of range it does nothing.
    Q_INVOKABLE void copyPath(int row);

Q_SIGNALS:
    void shownChanged();
    void filterChanged();
    void countChanged();

protected:
    AppViewModel &shownApp() const { return app; }
    const QList<int> &shownItems() const { return rows; } ///< Indices of the list that is shown, in the order of rows.

    /// Replaces the items and clears the search.
    void show(const QString &title, const QList<FilePath> &list);
    /// Computes the rows again.
    void arrange();
    const FilePath *pathAt(int row) const; ///< Null if there is no such row.
    QString countText() const;             ///< "1 item", "100,000 items": of all, whatever the search text.

private:
    /// The detail beside the path of an item; \a item is an index of the whole list.
    virtual QString detailOf(int item) const = 0;
    virtual bool isTicked(int /*item*/) const { return false; }
    /// Sorts \a shown, ascending indices of the whole list, into the order in which they are shown.
    virtual void order(QList<int> &shown) const = 0;

    void prepareSearch();

    AppViewModel &app;
    QString shownTitle;
    QString wanted;
    QList<FilePath> paths;
    QList<QByteArray> searchables; ///< Search texts of the paths that need one; empty until they are made.
    QList<int> rows;               ///< Which of the paths is shown where.
    QFutureWatcher<QList<QByteArray>> preparation; ///< Makes the search texts off the main thread.
    std::stop_source preparationStop;
};

} // namespace tidlo
