#include "app/FirstRun.h"

#include "platform/Containment.h"

namespace {

/// Whether there is somewhere to move to.
bool canBePlaced(const AppEnvironment &environment)
{
    const FilePath &destination = environment.applicationPath;
    const FilePath folder = destination.left(destination.lastIndexOf('/') + 1); // The slash: of a file there is none.
    return environment.fileManager->fileExists(folder) && !isSameOrWithin(environment.bundle().path, destination);
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
