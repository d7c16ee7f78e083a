#include "platform/Workspace.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/AtomicFile.h"
#include "platform/Bundle.h"
#include "platform/DetachedProcess.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/FileBrowser.h"
#include "platform/linux/OpenFolder.h"
#include "platform/linux/UserFiles.h"

#include <QCoreApplication>

namespace tidlo {

namespace {

class LinuxWorkspace final : public Workspace
{
public:
    /// Writes the entry that menus show, and the icon it names.
    void registerApplication(const FilePath &application) override
    {
        const UserFiles files = userFilesOf(applicationIdentifier);
        const auto logo = readSystemFile(uninterrupted(SystemCalls()), application + "/Contents/Resources/logo.png");
        if (logo)
            writeAtomically(files.icon, *logo);
        writeAtomically(files.desktopEntry, desktopEntry(bundleAt(application).executable, applicationIdentifier));
    }

    void openApplication(const FilePath &application, Opened opened) override
    {
        opened(startDetached(bundleAt(application).executable, {}));
    }

    void showInFiles(const FilePath &item) override { tidlo::showInFiles(item); }

    std::optional<QString> start(const FilePath &program, const QByteArrayList &arguments) override
    {
        return startDetached(program, arguments);
    }

    void terminateApplication() override { QCoreApplication::quit(); }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<LinuxWorkspace>();
}

} // namespace tidlo
