#pragma once

#include "ui/SteppedTime.h"
#include "ui/pictures/Shots.h"
#include "ui/shell/TidloApp.h"

#include <QImage>
#include <QTemporaryDir>

#include <functional>

namespace tidlo {

/// The application's window over the findings of DemoState.h, for pictures that are the same each time: animations
/// follow a stepped clock. Main thread; one at a time, on a platform without screens.
class Studio final
{
public:
    Studio(const QString &theme, QSize size);

    /// A picture of the window in that state once nothing moves any more; endless animations are at a fixed moment.
    QImage picture(const Shot &shot);

    /// Brings the application into a state.
    void show(const std::function<void(OpenModel &, QQuickWindow &)> &prepare);
    /// A picture of the window after the animations have run for that long.
    QImage pictureAfter(std::chrono::milliseconds motion);

private:
    SteppedTime time;
    QTemporaryDir folder;
    OpenModel *model; ///< The application's state owner.
    TidloApp application;
};

} // namespace tidlo
