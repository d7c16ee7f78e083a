#pragma once

#include "app/AppViewModel.h"

#include <QAbstractListModel>
#include <QSet>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// What the results screen shows: the candidates that pass the filter, one a row, and the figures around them. A change
/// that keeps the same rows, such as a toggle, keeps their views alive. Main thread.
class Findings : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(QString headline READ headline NOTIFY headlineChanged)
    Q_PROPERTY(QString selectionText READ selectionText NOTIFY selectionChanged)
    Q_PROPERTY(bool canMove READ canMove NOTIFY selectionChanged)
    Q_PROPERTY(bool isSparedUnknown READ isSparedUnknown NOTIFY isSparedUnknownChanged)
    Q_PROPERTY(Filter filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY summaryChanged)
    Q_PROPERTY(QString summaryRest READ summaryRest NOTIFY summaryChanged)
    Q_PROPERTY(bool isExplaining READ isExplaining NOTIFY isExplainingChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    /// The choices of the filter chips.
    enum class Filter { All, Safe, Review, Other };
    Q_ENUM(Filter)

    enum Role {
        TitleRole = Qt::UserRole,
        DetailRole,
        SymbolRole,
        SymbolHueRole,
        RiskRole,
        RiskHueRole,
        BadgeHueRole,
        SizeRole,
        ShareRole,
        SelectedRole,
        ToggleableRole,
    };

    /// \a shown must outlive it.
    explicit Findings(AppViewModel &shown, QObject *parent = nullptr);

    QString headline() const;
    QString selectionText() const;
    bool canMove() const; ///< Whether something is selected and no cleanup is under way.
    bool isSparedUnknown() const { return app.isSparedUnknown(); } ///< As AppViewModel has it.
    Filter filter() const;
    void setFilter(Filter filter);
    bool isExplaining() const { return app.isExplanationAwaited(); }
    /// The first 4,000 characters of the explanation; empty if there is none, or explanations are switched off.
    QString summary() const;
    QString summaryRest() const; ///< How many more characters there are, as a sentence; empty if there are none.
    int count() const { return static_cast<int>(rows.size()); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Flips the selection of a row; out of range it does nothing.
    Q_INVOKABLE void toggle(int row);

    /// The identifier of a row's candidate; null if out of range.
    Q_INVOKABLE QUuid candidateAt(int row) const;

    /// Copies the whole explanation to the clipboard, as it would be shown.
    Q_INVOKABLE void copySummary() const;

    /// How much space emptying the Trash would free of the selection, a line for each part, and how many folders could
    /// not be read.
    Q_INVOKABLE QString whatThisFrees() const;

    /// As AppViewModel has them.
    Q_INVOKABLE void viewReport() { app.viewReport(); }
    Q_INVOKABLE void moveSelectedToTrash() { app.moveSelectedToTrash(); }
    Q_INVOKABLE void acknowledgeSparedUnknown() { app.acknowledgeSparedUnknown(); }

Q_SIGNALS:
    void headlineChanged();
    void selectionChanged();
    void isSparedUnknownChanged();
    void filterChanged();
    void summaryChanged();
    void isExplainingChanged();
    void countChanged();
    void replaced(); ///< The rows were replaced by those of another scan: none of the candidates was there before.

private:
    void updateCandidates();
    void updateRows();
    QString wholeSummary() const;

    AppViewModel &app;
    QSet<QUuid> candidates; ///< The identifiers of all candidates.
    QList<CleanupCandidate> rows;
    qint64 maxBytes = 1; ///< Of all candidates, whether or not they pass the filter.
};

} // namespace tidlo
