#pragma once

#include "ui/screens/ItemList.h"

namespace tidlo {

/// What the last cleanup could not move, each item with the reason.
class StayedItems : public tidlo::ItemList
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")

public:
    using ItemList::ItemList;

    QString summary() const override; ///< How many there are.

    /// Shows the items that stayed, as the report lists them now.
    Q_INVOKABLE void inspect();
    void clear() override;

private:
    QString detailOf(int item) const override;
    void order(QList<int> &) const override {}

    QList<QString> reasons; ///< For each item.
};

} // namespace tidlo
