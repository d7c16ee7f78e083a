#pragma once

#include "ui/screens/ItemList.h"

#include <QUrl>

namespace tidlo {

/// The paths that the user has chosen for all scans: what is never suggested, and where else projects are looked for.
/// Each is ticked while it is stored; unticking removes it at once. Also asks whether a folder should be added to the
/// latter.
class KeptPaths : public tidlo::ItemList
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    /// What went wrong last, as a sentence; empty if nothing did.
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)
    /// The question whether to look into a proposed folder as well; empty if none is proposed.
    Q_PROPERTY(QString question READ question NOTIFY proposalChanged)
    /// Why a proposed folder cannot be looked into, as a sentence; empty if none was refused.
    Q_PROPERTY(QString refusal READ refusal NOTIFY proposalChanged)

public:
    /// \a shown must outlive it.
    explicit KeptPaths(AppViewModel &shown, QObject *parent = nullptr);

    QString summary() const override; ///< How many there are of each kind.
    bool isTickable() const override { return true; }
    QString note() const { return failure; }
    QString question() const;
    QString refusal() const;

    /// Shows the paths that are stored at this moment.
    Q_INVOKABLE void inspect();
    void clear() override;
    void toggle(int row) override;

    /// Proposes \a folder as a place where projects are looked for.
    Q_INVOKABLE void propose(const QUrl &folder);
    Q_INVOKABLE void answer(bool isWanted);

Q_SIGNALS:
    void noteChanged();
    void proposalChanged();

private:
    struct Entry
    {
        QLatin1StringView list; ///< The key of the preferences.
        FilePath path;
        bool isKept = true;
    };

    QString detailOf(int item) const override;
    bool isTicked(int item) const override { return entries.at(item).isKept; }
    void order(QList<int> &) const override {}
    void fail(const QString &text);

    QList<Entry> entries; ///< One for each item.
    QString failure;
};

} // namespace tidlo
