#pragma once

// Common parts of the programs that measure the window.

#include "ui/DemoState.h"
#include "ui/shell/TidloApp.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tidlo {

/// Times the events that the main thread handles, in milliseconds.
///
/// Only our own work counts: what the main thread does for one event, without the renderer's drawing, whose time
/// depends on the machine's graphics.
class MeteredApplication final : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    /// Leaves out the drawing of \a window.
    void watch(QQuickWindow &window)
    {
        connect(
            &window, &QQuickWindow::beforeRendering, this, [this] { drawing.start(); }, Qt::DirectConnection);
        connect(
            &window, &QQuickWindow::afterRendering, this,
            [this] {
                drawn += drawing.nsecsElapsed();
                ++frames;
            },
            Qt::DirectConnection);
        forget();
    }

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (isWithin)
            return QGuiApplication::notify(receiver, event);
        isWithin = true;
        drawn = 0;
        QElapsedTimer work;
        work.start();
        const bool result = QGuiApplication::notify(receiver, event);
        events.push_back(static_cast<double>(work.nsecsElapsed() - drawn) / 1e6);
        isWithin = false;
        return result;
    }

    void print(const char *what)
    {
        std::ranges::sort(events);
        if (events.empty())
            return;
        std::printf("%-22s %6zu events, %4d frames, %.2f ms at the 99th of 100, %.2f ms at most\n", what, events.size(),
                    frames, events[events.size() * 99 / 100], events.back());
    }

    void forget()
    {
        events.clear();
        frames = 0;
    }

private:
    std::vector<double> events;
    QElapsedTimer drawing;
    qint64 drawn = 0; ///< Nanoseconds of drawing within the event.
    int frames = 0;
    bool isWithin = false;
};

/// Runs the event loop for this time.
inline void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The live environment, but without explanations.
inline AppEnvironment quietEnvironment()
{
    AppEnvironment environment;
    environment.explain = explainNothing;
    return environment;
}

/// Opens the window as on any run after the first.
inline bool openQuietly(TidloApp &tidlo)
{
    if (!tidlo.open())
        return false;
    tidlo.model().setShowSetupWizard(false);
    tidlo.model().setShowMoveToApplicationsPrompt(false);
    return true;
}

} // namespace tidlo
