#include "platform/Workspace.h"

#include "platform/Process.h"

#include <QCoreApplication>

#import <AppKit/AppKit.h>

namespace tidlo {

namespace {

NSURL *urlOf(const FilePath &path)
{
    return [NSURL fileURLWithFileSystemRepresentation:path.constData() isDirectory:YES relativeToURL:nil];
}

class MacWorkspace final : public Workspace
{
public:
    void registerApplication(const FilePath &application) override
    {
        LSRegisterURL((__bridge CFURLRef)urlOf(application), true);
    }

    void openApplication(const FilePath &application, Opened opened) override
    {
        [NSWorkspace.sharedWorkspace
            openApplicationAtURL:urlOf(application)
                   configuration:[NSWorkspaceOpenConfiguration configuration]
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
