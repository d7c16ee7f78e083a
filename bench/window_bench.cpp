// Scans the home folder with the window open, then scrolls a hundred findings, and tells what that costs:
// window_bench [--seconds]. With --seconds it prints those that the scan took and nothing else.
//
// What counts as work of ours is what the main thread does between two waits for events, less what the renderer draws:
// how long that takes depends on the machine's graphics.

#include "ui/DemoState.h"
#include "ui/shell/TidloApp.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

/// The stretches of work of the main thread, in milliseconds.
class WorkMeter final : public QObject
{
public:
    explicit WorkMeter(QQuickWindow &window)
    {
        const QAbstractEventDispatcher *events = QAbstractEventDispatcher::instance();
        connect(events, &QAbstractEventDispatcher::awake, this, [this] {
            drawn = 0;
            work.start();
        });
        connect(events, &QAbstractEventDispatcher::aboutToBlock, this, [this] { end(); });
        connect(
            &window, &QQuickWindow::beforeRendering, this, [this] { drawing.start(); }, Qt::DirectConnection);
        connect(
            &window, &QQuickWindow::afterRendering, this, [this] { drawn += drawing.nsecsElapsed(); },
            Qt::DirectConnection);
    }

    void reset() { stretches.clear(); }

    void print(const char *what)
    {
        std::ranges::sort(stretches);
        if (stretches.empty())
            return;
        std::printf("%-22s %6zu stretches of work, %.2f ms at the 99th of 100, %.2f ms at most\n", what,
                    stretches.size(), stretches[stretches.size() * 99 / 100], stretches.back());
    }

private:
    void end()
    {
        if (work.isValid())
            stretches.push_back(static_cast<double>(work.nsecsElapsed() - drawn) / 1e6);
        work.invalidate();
    }

    QElapsedTimer work;
    QElapsedTimer drawing;
    qint64 drawn = 0; ///< Nanoseconds of drawing within the stretch.
    std::vector<double> stretches;
};

void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double secondsOfScan(AppViewModel &app)
{
    QEventLoop loop;
    QObject::connect(&app, &AppViewModel::phaseChanged, &loop, [&] {
        if (app.phase() == ScanPhase::results)
            loop.quit();
    });
    QElapsedTimer timer;
    timer.start();
    app.startScan();
    loop.exec();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

QQuickItem *item(QQuickItem &from, const char *name)
{
    if (from.objectName() == QLatin1StringView(name))
        return &from;
    for (QQuickItem *child : from.childItems()) {
        if (QQuickItem *found = item(*child, name))
            return found;
    }
    return nullptr;
}

void showHundredFindings(AppViewModel &app)
{
    QList<CleanupCandidate> hundred;
    while (hundred.size() < 100) {
        for (CleanupCandidate candidate : demoFindings()) {
            candidate.id = QUuid::createUuid();
            hundred.append(candidate);
        }
    }
    app.setCandidates(hundred.first(100));
    app.setSection(AppSection::results);
}

void scroll(QQuickItem &list)
{
    QPropertyAnimation down(&list, "contentY");
    down.setStartValue(0.0);
    down.setEndValue(list.property("contentHeight").toDouble() - list.height());
    down.setDuration(4000);
    down.start();
    waitFor(4100);
}

void printMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            std::printf("%-22s %s\n", "on the results screen", line.constData());
    }
}

AppEnvironment quietEnvironment()
{
    AppEnvironment environment;
    environment.explain = demoEnvironment().explain;
    return environment;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    TidloApp tidlo(quietEnvironment());
    if (!tidlo.open())
        return 1;
    tidlo.model().setShowSetupWizard(false);
    tidlo.model().setShowMoveToApplicationsPrompt(false);
    waitFor(1500);
    WorkMeter meter(*tidlo.window());
    const double seconds = secondsOfScan(tidlo.model());
    if (argc > 1 && std::strcmp(argv[1], "--seconds") == 0) {
        std::printf("%f\n", seconds);
        return 0;
    }
    meter.print("while scanning");
    waitFor(1500);
    printMemory();
    showHundredFindings(tidlo.model());
    waitFor(1000);
    meter.reset();
    scroll(*item(*tidlo.window()->contentItem(), "findings"));
    meter.print("scrolling 100 rows");
    return 0;
}
