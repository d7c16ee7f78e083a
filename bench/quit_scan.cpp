// Quits in the middle of a scan of the home folder, at each of its steps and some time into it, and prints how long it
// takes until the application has ended completely: quit_scan

#include "app/AppViewModel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace tidlo {

namespace {

/// How many milliseconds quitting takes if the scan has run for \a delay.
double quitAfter(std::chrono::milliseconds delay)
{
    auto model = std::make_unique<AppViewModel>();
    QElapsedTimer timer;
    QTimer::singleShot(delay, Qt::PreciseTimer, qApp, [&timer] {
        timer.start();
        QCoreApplication::quit();
    });
    model->startScan();
    QCoreApplication::exec();
    const bool wasScanning = model->phase() == ScanPhase::scanning;
    model.reset();
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    QCoreApplication::processEvents();
    return wasScanning ? elapsed : -1;
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const QCoreApplication application(count, arguments);
    std::vector<double> times;
    for (std::chrono::milliseconds delay{0};; delay += std::chrono::milliseconds(10)) {
        const double elapsed = quitAfter(delay);
        if (elapsed < 0)
            break; // The scan has ended before.
        times.push_back(elapsed);
    }
    if (times.empty()) {
        std::fprintf(stderr, "quit_scan: no scan was under way\n");
        return 1;
    }
    std::ranges::sort(times);
    std::printf("%zu times, %.1f ms in the middle, %.1f ms at most\n", times.size(), times[times.size() / 2],
                times.back());
}
