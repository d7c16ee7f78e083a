#pragma once

#include "model/FilePath.h"

#include <QByteArrayList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// Requests of the application to the desktop. Called on the main thread. Errors are the system's own messages.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Called with the result of opening: an error if the application could not be started. On any thread, at any time.
    using Opened = std::function<void(const std::optional<QString> &error)>;

    /// Registers the application at \a application with the user's desktop, in place of an earlier registration.
    /// Properties that the desktop cannot hold are left out.
    virtual void registerApplication(const FilePath &application) = 0;

    /// Starts the application at \a application, which outlives this one.
    virtual void openApplication(const FilePath &application, Opened opened) = 0;

    /// Shows \a item, selected, in a window of the file browser; if no file browser can do that, the folder that it is
    /// in. Returns at once. Does nothing on a desktop without a file browser.
    virtual void showInFiles(const FilePath &item) = 0;

    /// Starts a program that outlives this one and is not waited for.
    virtual std::optional<QString> start(const FilePath &program, const QByteArrayList &arguments) = 0;

    /// Ends this application as if a person quit it, once control is back in the event loop.
    virtual void terminateApplication() = 0;
};

/// The desktop of this system.
std::unique_ptr<Workspace> makeWorkspace();

} // namespace tidlo
