#include "app/AppViewModel.h"
#include "platform/ApplicationCopier.h"
#include "platform/Paths.h"

#include <QCoreApplication>
#include <QPointer>

namespace tidlo {

bool AppViewModel::isSetupNeeded() const
{
    return !environment.defaults->boolean(UserDefaults::setupCompleted);
}

/// Whether there is a bundle that can be moved, and somewhere to move it to.
bool AppViewModel::canBePlaced() const
{
    const Bundle bundle = environment.bundle();
    const FilePath &destination = environment.applicationPath;
    const FilePath folder = destination.left(destination.lastIndexOf('/') + 1); // The slash excludes a file.
    return bundle.isApplication() && environment.fileManager->fileExists(folder) &&
           !isSameOrWithin(bundle.path, destination);
}

void AppViewModel::beginFirstRun()
{
    if (!isSetupNeeded())
        return;
    if (canBePlaced())
        setShowMoveToApplicationsPrompt(true);
    else
        skipMoveToApplicationsPrompt();
}

void AppViewModel::skipMoveToApplicationsPrompt()
{
    setShowMoveToApplicationsPrompt(false);
    setShowSetupWizard(isSetupNeeded());
}

void AppViewModel::moveToApplicationsFolder()
{
    requireMainThread();
    const Bundle bundle = environment.bundle();
    if (!bundle.isApplication()) { // A bare executable would replace a whole application.
        reportPlacementFailure(QStringLiteral("The running program is not in a bundle."));
        return;
    }
    if (const auto error = copyApplication(bundle.path, environment.applicationPath)) {
        reportPlacementFailure(*error);
        return;
    }
    environment.workspace->registerApplication(environment.applicationPath);
    openCopy();
}

void AppViewModel::openCopy()
{
    const QPointer<AppViewModel> self(this);
    const auto end = [self](const std::optional<QString> &error) {
        if (!self)
            return;
        if (error)
            self->reportPlacementFailure(*error);
        else
            self->environment.workspace->terminateApplication();
    };
    environment.workspace->openApplication(environment.applicationPath, [end](const std::optional<QString> &error) {
        const auto endOnMainThread = [end, error] { end(error); };
        QMetaObject::invokeMethod(qApp, endOnMainThread, Qt::QueuedConnection);
    });
}

void AppViewModel::reportPlacementFailure(const QString &message)
{
    setMoveToApplicationsErrorMessage(message);
    setShowMoveToApplicationsError(true);
    setShowSetupWizard(isSetupNeeded());
}

} // namespace tidlo
