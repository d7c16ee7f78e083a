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

/// What the report screen shows: the last cleanup, or, before there was one, what the selection would come to. Main
/// thread.
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

public:
    /// \a app must outlive it.
    explicit ShownReport(AppViewModel &app, QObject *parent = nullptr);

    /// The report as \a app has it, or a preview made of the selection.
    static CleanupReport reportOf(const AppViewModel &app);

    QString recoveredText() const;
    QString diskText() const;
    double freeShare() const; ///< A fraction, never less than a hundredth.
    QString freeText() const;
    QList<ReportFigure> figures() const;
    bool hasStayed() const; ///< Whether the cleanup left something where it was.

Q_SIGNALS:
    void changed();

private:
    AppViewModel &app;
};

} // namespace tidlo
