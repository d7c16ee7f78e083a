#include "app/AppViewModel.h"
#include "platform/AtomicFile.h"
#include "platform/Bundle.h"
#include "platform/Paths.h"
#include "platform/UninstallScript.h"
#include "platform/VisibleText.h"

#include <cstdio>

namespace tidlo {

namespace {

/// Writes the script and starts it. Gives what went wrong, for a person; then nothing has been started.
std::optional<QString> startScript(const AppEnvironment &environment)
{
    const Bundle bundle = environment.bundle();
    if (!bundle.isOurs() || !environment.fileManager->fileExists(bundle.executable))
        return QStringLiteral("The running program is not in a bundle of its own.");
    if (isSameOrWithin(environment.fileManager->homeDirectoryForCurrentUser(), bundle.path))
        return QStringLiteral("The bundle of the application holds the home folder, or may do so.");
    const UninstallScript script = uninstallScript(bundle.path, bundle.identifier.value_or(applicationIdentifier));
    if (script.unquotable)
        return QStringLiteral("A shell would read a character of this path as its own: ") +
               visibleText(*script.unquotable);
    const FilePath file = environment.temporaryFolder + "/uninstall_tidlo.sh";
    if (const int error = writeAtomically(file, script.text, 0700))
        return qt_error_string(error);
    return environment.workspace->start("/bin/bash", {file});
}

} // namespace

void AppViewModel::uninstallTidloCompletely()
{
    requireMainThread();
    if (const auto error = startScript(environment)) {
        std::printf("Tidlo uninstall failed to start: %s\n", qUtf8Printable(*error));
        std::fflush(stdout);
        return;
    }
    environment.workspace->terminateApplication();
}

} // namespace tidlo
