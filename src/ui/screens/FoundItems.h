#pragma once

#include "ui/screens/ItemList.h"

namespace tidlo {

/// What one finding consists of, each item with the size that the scan found.
class FoundItems : public tidlo::ItemList
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(bool largestFirst READ isLargestFirst WRITE setLargestFirst NOTIFY orderChanged)

public:
    using ItemList::ItemList;

    bool isLargestFirst() const { return sorted; }
    void setLargestFirst(bool largestFirst); ///< Otherwise they are in the order they were found.
    QString summary() const override;        ///< How many there are, and their size.

    /// Shows the items of the candidate \a id; none if there is no such candidate.
    Q_INVOKABLE void inspect(const QUuid &id);
    void clear() override;

Q_SIGNALS:
    void orderChanged();

private:
    QString detailOf(int item) const override;
    void order(QList<int> &shown) const override;

    bool sorted = false;
    QList<qint64> sizes; ///< Of each item, in bytes on the disk.
};

} // namespace tidlo
