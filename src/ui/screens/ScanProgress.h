#pragma once

#include "app/AppViewModel.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// One row of the list of what a scan does.
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
    QString state() const; ///< In a word.

    bool operator==(const PipelineStep &) const = default;
};

/// What the scanning screen shows. Main thread.
class ScanProgress : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(AppViewModel *app READ app WRITE setApp NOTIFY appChanged REQUIRED)
    Q_PROPERTY(QString percentText READ percentText NOTIFY progressChanged)
    Q_PROPERTY(QList<PipelineStep> steps READ steps NOTIFY stepsChanged)

public:
    AppViewModel *app() const { return source; }
    void setApp(AppViewModel *app);
    QString percentText() const;
    QList<PipelineStep> steps() const { return shownSteps; }

    /// The four steps as they stand at \a progress, a fraction.
    static QList<PipelineStep> stepsAt(double progress);

Q_SIGNALS:
    void appChanged();
    void progressChanged();
    void stepsChanged(); ///< One of them became active or complete.

private:
    void update();

    QPointer<AppViewModel> source;
    QList<PipelineStep> shownSteps = stepsAt(0);
};

} // namespace tidlo
