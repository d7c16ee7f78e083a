#include "app/AppViewModel.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>

namespace tidlo {

AppViewModel::AppViewModel(AppEnvironment given, QObject *parent)
    : QObject(parent)
    , environment(std::move(given))
{
    setShowMoveToApplicationsPrompt(false);
    setShowSetupWizard(false);
    setPhase(ScanPhase::ready);
    connect(environment.defaults.get(), &UserDefaults::changed, this, &AppViewModel::heedPreference);
    readDiskTotals();
}

void AppViewModel::requireMainThread() const
{
    if (QThread::currentThread() != qApp->thread())
        qFatal("AppViewModel was used on another thread than the main one");
}

void AppViewModel::openSection(AppSection section)
{
    setSection(section);
    if (section == AppSection::results && phase() == ScanPhase::ready)
        setPhase(ScanPhase::results);
    else if (section == AppSection::report && cleanupReport())
        setPhase(ScanPhase::report);
}

void AppViewModel::viewReport()
{
    setSection(AppSection::report);
    setPhase(ScanPhase::report);
}

QCoro::Task<> AppViewModel::readDiskTotals()
{
    const std::shared_ptr<const void> held = underWay;
    const QPointer<AppViewModel> self(this);
    const ScanTotals totals = co_await scanner.diskTotals(environment.fileManager->homeDirectoryForCurrentUser());
    if (self)
        setTotals(totals);
}

} // namespace tidlo
