#pragma once

#include "ui/screens/ItemList.h"

namespace tidlo {

/// What one finding consists of, each item with the size that the scan found, and ticked if it is to be moved.
class FoundItems : public tidlo::ItemList
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    /// What else came of the last thing done to items, as a sentence; empty if nothing did.
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)
    Q_PROPERTY(bool largestFirst READ isLargestFirst WRITE setLargestFirst NOTIFY orderChanged)

public:
    /// \a shown must outlive it.
    explicit FoundItems(AppViewModel &shown, QObject *parent = nullptr);

    bool isLargestFirst() const { return sorted; }
    void setLargestFirst(bool largestFirst); ///< Otherwise they are in the order they were found.
    /// How many there are, and their size; what of it is ticked, if not all; what that frees, where it is less.
    QString summary() const override;
    QString note() const { return whatElse; }
    bool isTickable() const override;

    /// Shows the items of the candidate \a id; none if there is no such candidate.
    Q_INVOKABLE void inspect(const QUuid &id);
    void clear() override;
    void toggle(int row) override;
    /// Ticks, or unticks, all items that are shown at present.
    Q_INVOKABLE void tickShown(bool ticked);

    /// What spare() would do, as a line of a menu: names what would go too, and its size.
    Q_INVOKABLE QString spareText(int row) const;
    /// Keeps the item as never to be suggested; it is gone from the rows then. Out of range it does nothing.
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
    CleanupCandidate finding; ///< As it was scanned.
    QList<bool> ticks;        ///< Of each item.
    QString whatElse;
    QList<qint64> sizes; ///< Of each item, in bytes on the disk.
};

} // namespace tidlo
