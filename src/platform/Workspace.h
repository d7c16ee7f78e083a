#pragma once

#include "model/FilePath.h"

#include <QByteArrayList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// What the application asks of the desktop. Called on the main thread. Errors are in the system's own words.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Told how opening went; an error if the application could not be started. On any thread, at any time.
    using Opened = std::function<void(const std::optional<QString> &error)>;

    /// Makes the application at \a application known to the user's desktop, in place of what was known of it before.
    /// What cannot be told to the desktop is left out.
    virtual void registerApplication(const FilePath &application) = 0;

    /// Starts the application at \a application, which outlives this one.
    virtual void openApplication(const FilePath &application, Opened opened) = 0;

    /// Shows \a item, chosen, in the window of a file browser; where none can do that, the folder it lies in. Returns
    /// at once. Does nothing on a desktop that has no file browser.
    virtual void showInFiles(const FilePath &item) = 0;

    /// Starts a program that outlives this one and is not waited for.
    virtual std::optional<QString> start(const FilePath &program, const QByteArrayList &arguments) = 0;

    /// Ends this application as a person would who quits it, once control is back in the event loop.
    virtual void terminateApplication() = 0;
};

/// The desktop of this system.
std::unique_ptr<Workspace> makeWorkspace();

} // namespace tidlo
