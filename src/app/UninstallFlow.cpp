#include "app/AppViewModel.h"
#include "platform/AtomicFile.h"
#include "platform/Bundle.h"
#include "platform/Paths.h"
#include "platform/UninstallScript.h"
#include "platform/VisibleText.h"

#include <cstdio>

namespace tidlo {

namespace {

using Obstacle = std::optional<QString>;

/// Writes the script and starts it. Returns what went wrong, for a person; then nothing was started.
Obstacle startScript(const AppEnvironment &environment, const UninstallScript &script)
{
    if (script.unquotable)
        return QStringLiteral("A shell would read a character of this path as its own: ") +
               visibleText(*script.unquotable);
    const FilePath file = environment.temporaryFolder + "/uninstall_tidlo.sh";
    if (const int error = writeAtomically(file, script.text, 0700))
        return qt_error_string(error);
    return environment.workspace->start("/bin/bash", {file});
}

Obstacle uninstallBundle(const AppEnvironment &environment)
{
    const Bundle bundle = environment.bundle();
    if (!bundle.isOurs() || !environment.fileManager->fileExists(bundle.executable))
        return QStringLiteral("The running program is not in a bundle of its own.");
    if (isSameOrWithin(environment.fileManager->homeDirectoryForCurrentUser(), bundle.path))
        return QStringLiteral("The bundle of the application holds the home folder, or may do so.");
    return startScript(environment, uninstallScript(bundle.path, bundle.identifier.value_or(applicationIdentifier)));
}

void quitUnless(const Obstacle &obstacle, Workspace &workspace)
{
    if (!obstacle) {
        workspace.terminateApplication();
        return;
    }
    std::printf("Tidlo uninstall failed to start: %s\n", qUtf8Printable(*obstacle));
    std::fflush(stdout);
}

} // namespace

void AppViewModel::uninstallTidloCompletely()
{
    requireMainThread();
    quitUnless(uninstallBundle(environment), *environment.workspace);
}

void AppViewModel::removePreferencesAndCaches()
{
    requireMainThread();
    quitUnless(startScript(environment, uninstallScript({}, applicationIdentifier)), *environment.workspace);
}

} // namespace tidlo
