#include "ui/screens/ScanProgress.h"

#include "model/TidloPercent.h"
#include "scanner/ScanSteps.h"

#include <array>

namespace tidlo {

namespace {

struct Step
{
    QStringView title;
    QStringView detail;
    double activeFrom; ///< Fractions of the scan.
    double completeFrom;
};

constexpr std::array pipeline{
    Step{u"Project & build files", u"Temporary project data, build caches, output folders",
         fractionOf(ScanStage::projectFolders), fractionOf(ScanStage::whatsApp)},
    Step{u"WhatsApp media", u"Media cache only; chat database protected", fractionOf(ScanStage::whatsApp),
         fractionOf(ScanStage::caches)},
    Step{u"Caches, Downloads & Large Files", u"App caches, old installers, and files >100MB untouched for 60+ days",
         fractionOf(ScanStage::caches), fractionOf(ScanStage::projectCopies)},
    Step{u"Duplicate project copies", u"Detect latest copy and flag older folders",
         fractionOf(ScanStage::projectCopies), ScanEnd().fraction},
};

} // namespace

QString PipelineStep::symbol() const
{
    if (complete)
        return QStringLiteral("checkmark");
    return active ? QStringLiteral("arrow.triangle.2.circlepath") : QStringLiteral("circle");
}

QString PipelineStep::state() const
{
    if (complete)
        return QStringLiteral("done");
    return active ? QStringLiteral("under way") : QStringLiteral("waiting");
}

ScanProgress::ScanProgress(AppViewModel &shown, QObject *parent)
    : QObject(parent)
    , app(shown)
{
    connect(&app, &AppViewModel::scanProgressChanged, this, &ScanProgress::update);
    connect(&app, &AppViewModel::scanLabelChanged, this, &ScanProgress::labelChanged);
    update();
}

QString ScanProgress::percentText() const
{
    return tidloPercent(fraction());
}

QList<PipelineStep> ScanProgress::stepsAt(double progress)
{
    QList<PipelineStep> steps;
    for (const Step &step : pipeline) {
        steps.append({.title = step.title.toString(),
                      .detail = step.detail.toString(),
                      .active = progress >= step.activeFrom,
                      .complete = progress >= step.completeFrom});
    }
    return steps;
}

void ScanProgress::update()
{
    Q_EMIT progressChanged();
    const QList<PipelineStep> steps = stepsAt(fraction());
    if (steps == shownSteps)
        return;
    shownSteps = steps;
    Q_EMIT stepsChanged();
}

} // namespace tidlo
