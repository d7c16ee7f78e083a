#pragma once

#include "app/AppViewModel.h"
#include "ui/design/TidloTheme.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// One figure of the report.
struct ReportFigure
{
    Q_GADGET
    QML_VALUE_TYPE(reportFigure)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(tidlo::TidloTheme::Hue hue MEMBER hue)

public:
    QString title;
    QString value;
    QString detail;
    TidloTheme::Hue hue = TidloTheme::Hue::PrimaryText;

    bool operator==(const ReportFigure &) const = default;
};

/// What the report screen shows: the last cleanup or, before the first one, a preview for the selection. Main thread.
class ShownReport : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(QString recoveredText READ recoveredText NOTIFY changed)
    Q_PROPERTY(QString diskText READ diskText NOTIFY changed)
    Q_PROPERTY(double freeShare READ freeShare NOTIFY changed)
    Q_PROPERTY(QString freeText READ freeText NOTIFY changed)
    Q_PROPERTY(QList<tidlo::ReportFigure> figures READ figures NOTIFY changed)
    Q_PROPERTY(bool hasStayed READ hasStayed NOTIFY changed)
    Q_PROPERTY(bool canPutBack READ canPutBack NOTIFY canPutBackChanged)
    Q_PROPERTY(QString notPutBack READ notPutBack NOTIFY notPutBackChanged)

public:
    /// \a shown must outlive it.
    explicit ShownReport(AppViewModel &shown, QObject *parent = nullptr);

    /// The report of \a app, or a preview computed from the selection.
    static CleanupReport reportOf(const AppViewModel &app);

    QString recoveredText() const;
    QString diskText() const;
    double freeShare() const; ///< A fraction, at least 0.01.
    QString freeText() const;
    QList<ReportFigure> figures() const;
    bool hasStayed() const; ///< Whether the cleanup left something where it was.

    bool canPutBack() const { return app.canPutBack(); }
    /// What could not be put back and why, for a person: the first three items, and how many more; empty if there are
    /// none.
    QString notPutBack() const;

    /// As AppViewModel has them.
    Q_INVOKABLE void putEverythingBack() { app.putEverythingBack(); }
    Q_INVOKABLE void acknowledgeNotPutBack() { app.acknowledgeNotPutBack(); }

Q_SIGNALS:
    void changed();
    void canPutBackChanged();
    void notPutBackChanged();

private:
    AppViewModel &app;
};

} // namespace tidlo
