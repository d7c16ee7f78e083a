#pragma once

#include "app/AppViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// One row of the list of a scan's steps.
struct PipelineStep
{
    Q_GADGET
    QML_VALUE_TYPE(pipelineStep)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool active MEMBER active)
    Q_PROPERTY(bool complete MEMBER complete)
    Q_PROPERTY(QString symbol READ symbol)
    Q_PROPERTY(QString state READ state)

public:
    QString title;
    QString detail;
    bool active = false;
    bool complete = false;

    QString symbol() const;
    QString state() const; ///< As one word.

    bool operator==(const PipelineStep &) const = default;
};

/// What the scanning screen shows. Main thread.
class ScanProgress : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(double fraction READ fraction NOTIFY progressChanged)
    Q_PROPERTY(QString label READ label NOTIFY labelChanged)
    Q_PROPERTY(QString percentText READ percentText NOTIFY progressChanged)
    Q_PROPERTY(QList<tidlo::PipelineStep> steps READ steps NOTIFY stepsChanged)

public:
    /// \a shown must outlive it.
    explicit ScanProgress(AppViewModel &shown, QObject *parent = nullptr);

    double fraction() const { return app.scanProgress(); }
    QString label() const { return app.scanLabel(); }
    QString percentText() const;
    QList<PipelineStep> steps() const { return shownSteps; }

    /// The four steps as they stand at \a progress, a fraction.
    static QList<PipelineStep> stepsAt(double progress);

Q_SIGNALS:
    void progressChanged();
    void labelChanged();
    void stepsChanged(); ///< One of them became active or complete.

private:
    void update();

    AppViewModel &app;
    QList<PipelineStep> shownSteps = stepsAt(0);
};

} // namespace tidlo
