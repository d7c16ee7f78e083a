#pragma once

#include "ui/screens/ItemList.h"

namespace tidlo {

/// The items of one finding, each with the size that the scan measured, and ticked if it is to be moved.
class FoundItems : public tidlo::ItemList
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    /// A side effect of the last action on items, as a sentence; empty if there was none.
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)
    Q_PROPERTY(bool largestFirst READ isLargestFirst WRITE setLargestFirst NOTIFY orderChanged)

public:
    /// \a shown must outlive it.
    explicit FoundItems(AppViewModel &shown, QObject *parent = nullptr);

    bool isLargestFirst() const { return sorted; }
    void setLargestFirst(bool largestFirst); ///< Otherwise they are in the order in which they were found.
    /// Their number and size; how much is ticked, if not all; how much that frees, if that is less.
    QString summary() const override;
    QString note() const { return whatElse; }
    bool isTickable() const override;

    /// Shows the items of the candidate \a id; none if there is no such candidate.
    Q_INVOKABLE void inspect(const QUuid &id);
    void clear() override;
    void toggle(int row) override;
    /// Ticks, or unticks, all items that the search shows.
    Q_INVOKABLE void tickShown(bool ticked);

    /// The text of the menu line for spare(): names which holding folders would be left out too, and their size.
    Q_INVOKABLE QString spareText(int row) const;
    /// Adds the item to what is never suggested; its row disappears. Out of range it does nothing.
    Q_INVOKABLE void spare(int row);

Q_SIGNALS:
    void noteChanged();
    void orderChanged();

private:
    QString detailOf(int item) const override;
    bool isTicked(int item) const override { return ticks.at(item); }
    void order(QList<int> &shown) const override;
    void setTicks(const QList<int> &items, bool ticked);
    void updateTicks();

    bool sorted = false;
    CleanupCandidate finding; ///< As the scan found it.
    QList<bool> ticks;        ///< Of each item.
    QString whatElse;
    QList<qint64> sizes; ///< Of each item, in bytes on the disk.
};

} // namespace tidlo
