#include "platform/Workspace.h"

#include "platform/Process.h"

#include <QCoreApplication>

#import <AppKit/AppKit.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

/// A link stands for itself, whatever its target.
NSURL *urlOf(const FilePath &path)
{
    struct stat item;
    const bool isFolder = lstat(path.constData(), &item) == 0 && S_ISDIR(item.st_mode);
    return [NSURL fileURLWithFileSystemRepresentation:path.constData() isDirectory:isFolder relativeToURL:nil];
}

class MacWorkspace final : public Workspace
{
public:
    void registerApplication(const FilePath &application) override
    {
        LSRegisterURL((__bridge CFURLRef)urlOf(application), true);
    }

    /// The copy that is opened has the same identifier as this program: without asking for a new instance, this program
    /// would only be brought to the front.
    void openApplication(const FilePath &application, Opened opened) override
    {
        NSWorkspaceOpenConfiguration *configuration = [NSWorkspaceOpenConfiguration configuration];
        configuration.createsNewApplicationInstance = YES;
        [NSWorkspace.sharedWorkspace
            openApplicationAtURL:urlOf(application)
                   configuration:configuration
               completionHandler:^(NSRunningApplication *, NSError *error) {
                 opened(error ? std::optional(QString::fromNSString(error.localizedDescription)) : std::nullopt);
               }];
    }

    void showInFiles(const FilePath &item) override
    {
        [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ urlOf(item) ]];
    }

    std::optional<QString> start(const FilePath &program, const QByteArrayList &arguments) override
    {
        return startDetached(program, arguments);
    }

    void terminateApplication() override { QCoreApplication::quit(); }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<MacWorkspace>();
}

} // namespace tidlo
