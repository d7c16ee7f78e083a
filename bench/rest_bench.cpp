// The cost of the window before anything is done in it: how soon its first frame appears, and how much processor time
// it takes while the landing screen is animated, while it shows a screen on which nothing moves, and while it cannot be
// seen.

#include "WindowBench.h"

#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <ctime>

#include <unistd.h>

namespace tidlo {

namespace {

constexpr int restMilliseconds = 6000;

double secondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// In seconds since the system was started; the system reports it in hundredths.
double secondOfStart()
{
    constexpr int startTime = 19; // Counted from the field after the program's name.
    QFile status(QStringLiteral("/proc/self/stat"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = status.readAll();
    const QList<QByteArray> fields = line.sliced(line.lastIndexOf(')') + 2).split(' ');
    return fields.at(startTime).toDouble() / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// Waits, and prints the share of a processor that all threads took during that time.
void printShare(const char *what)
{
    waitFor(500); // By now, the change to this state is over.
    const double before = secondsOf(CLOCK_PROCESS_CPUTIME_ID);
    const double begun = secondsOf(CLOCK_MONOTONIC);
    waitFor(restMilliseconds);
    const double share = (secondsOf(CLOCK_PROCESS_CPUTIME_ID) - before) / (secondsOf(CLOCK_MONOTONIC) - begun);
    std::printf("%-22s %5.1f %% of a processor\n", what, 100 * share);
}

} // namespace

} // namespace tidlo

int main(int argc, char **argv)
{
    using namespace tidlo;
    MeteredApplication application(argc, argv);
    TidloApp tidlo(quietEnvironment());
    if (!openQuietly(tidlo))
        return 1;
    QQuickWindow &window = *tidlo.window();
    QEventLoop untilDrawn;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &untilDrawn, &QEventLoop::quit);
    untilDrawn.exec();
    std::printf("%-22s %5.0f ms after the start\n", "the first frame",
                1000 * (secondsOf(CLOCK_BOOTTIME) - secondOfStart()));

    waitFor(1500);
    application.watch(window);
    printShare("breathing");
    application.print("breathing");
    tidlo.model().openSection(AppSection::settings);
    printShare("at rest");
    tidlo.model().openSection(AppSection::scan);
    window.showMinimized();
    printShare("breathing, minimised");
    window.hide();
    printShare("breathing, hidden");
    return 0;
}
