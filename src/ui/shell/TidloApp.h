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

/// The application: makes what there is one of, and opens the window on it. Main thread.
class TidloApp final
{
public:
    /// Needs an application object. \a environment is what the state owner depends on.
    explicit TidloApp(AppEnvironment environment = {});
    /// With a state owner that is there already.
    explicit TidloApp(std::unique_ptr<AppViewModel> model);
    ~TidloApp();

    /// False if the window could not be made; what was wrong has been written to standard error.
    bool open();

    /// From now on the window looks and moves as the desktop wishes, wherever the person has not chosen otherwise.
    void heed(const DesktopWishes &wishes);

    QQuickWindow *window() const;
    AppViewModel &model() { return *app; }

private:
    std::unique_ptr<AppViewModel> app;
    ShownState shown{*app};
    QQmlApplicationEngine engine; ///< Last, since what it shows reads the others.
};

/// Starts the application and runs it until it quits. Returns the program's exit status; what has not ended within a
/// second of quitting is cut short, and the process with it.
int runTidlo(int argumentCount, char **arguments);

} // namespace tidlo
