#include "app/FirstRun.h"

#include "platform/Paths.h"

namespace tidlo {

namespace {

/// Whether there is a bundle that can be moved, and somewhere to move it to.
bool canBePlaced(const AppEnvironment &environment)
{
    const Bundle bundle = environment.bundle();
    const FilePath &destination = environment.applicationPath;
    const FilePath folder = destination.left(destination.lastIndexOf('/') + 1); // The slash: of a file there is none.
    return bundle.isApplication() && environment.fileManager->fileExists(folder) &&
           !isSameOrWithin(bundle.path, destination);
}

} // namespace

void beginFirstRun(AppViewModel &model)
{
    if (model.given().defaults->boolean(UserDefaults::setupCompleted))
        return;
    if (canBePlaced(model.given()))
        model.setShowMoveToApplicationsPrompt(true);
    else
        model.skipMoveToApplicationsPrompt();
}

} // namespace tidlo
