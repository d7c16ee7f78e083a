#pragma once

#include "ui/SteppedTime.h"
#include "ui/pictures/Shots.h"
#include "ui/shell/TidloApp.h"

#include <QImage>
#include <QTemporaryDir>

#include <functional>

namespace tidlo {

/// The application's window over the findings of DemoState.h, for pictures that are the same each time: what moves does
/// so by steps of a time of its own. Main thread; one at a time, on a platform without screens.
class Studio final
{
public:
    Studio(const QString &theme, QSize size);

    /// How the window looks in that state once what moves has come to rest; what moves for ever, at a fixed moment.
    QImage picture(const Shot &shot);

    /// Puts the application into a state.
    void show(const std::function<void(OpenModel &, QQuickWindow &)> &prepare);
    /// How the window looks when what moves has gone on for that long.
    QImage pictureAfter(std::chrono::milliseconds motion);

private:
    SteppedTime time;
    QTemporaryDir folder;
    OpenModel *model; ///< Of the application.
    TidloApp application;
};

} // namespace tidlo
