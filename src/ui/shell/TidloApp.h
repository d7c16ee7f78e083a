#pragma once

#include "app/AppViewModel.h"
#include "platform/DesktopSettings.h"
#include "ui/shell/ShownState.h"

#include <QQmlApplicationEngine>

class QQuickWindow;

namespace tidlo {

/// Makes the modules Tidlo.Design, Tidlo.Screens and Tidlo.Shell known to QML, before the first engine loads anything.
/// Needs an application object.
void registerQmlModules();

/// The application: makes the objects that exist once, and opens the window on them. Main thread.
class TidloApp final
{
public:
    /// Needs an application object. \a environment is what the state owner depends on.
    explicit TidloApp(AppEnvironment environment = {});
    /// Takes a state owner that exists already.
    explicit TidloApp(std::unique_ptr<AppViewModel> model);
    ~TidloApp();

    /// False if the window could not be made; the reason has then been written to standard error.
    bool open();

    /// From now on the window follows \a wishes of the desktop, unless the person has chosen otherwise.
    void heed(const DesktopWishes &wishes);

    QQuickWindow *window() const;
    AppViewModel &model() { return *app; }

private:
    std::unique_ptr<AppViewModel> app;
    ShownState shown{*app};
    QQmlApplicationEngine engine; ///< Last, since its objects read the others.
};

/// Starts the application and runs it until it quits. Returns the program's exit status. Work that has not ended a
/// second after quitting is cut off by ending the process.
int runTidlo(int argumentCount, char **arguments);

} // namespace tidlo
