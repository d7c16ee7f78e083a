// Scans the home folder with the window open, scrolls a hundred findings, opens the list of 100,000 items, and prints
// the cost: window_bench [--seconds]. With --seconds it prints only the seconds that the scan took.

#include "WindowBench.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QTimer>

#include <cstdio>
#include <cstring>

namespace tidlo {

namespace {

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
    app.showResults({.snapshot = {.totals = {}, .candidates = hundred.first(100)}, .sizes = {}});
}

/// Opens the list of a finding's items and returns it.
QQuickItem &lookIntoManyItems(TidloApp &tidlo)
{
    CleanupCandidate many = demoFindings().constFirst();
    many.paths.clear();
    while (many.paths.size() < 100'000)
        many.paths.append("/home/you/Sites/project-" + FilePath::number(many.paths.size()) + "/node_modules");
    const QList<qint64> sizes(many.paths.size(), 4096);
    tidlo.model().showResults({.snapshot = {.totals = {}, .candidates = {many}}, .sizes = {{many.id, sizes}}});
    QQuickItem &content = *tidlo.window()->contentItem();
    QMetaObject::invokeMethod(item(content, "row0"), "inspected");
    return *item(content, "items");
}

void sortAndSearch(QObject &items)
{
    for (const bool largestFirst : {true, false, true}) {
        items.setProperty("largestFirst", largestFirst);
        waitFor(200);
    }
    for (const char *words : {"9", "99", "999", ""}) {
        items.setProperty("filter", QString::fromLatin1(words));
        waitFor(200);
    }
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

} // namespace

} // namespace tidlo

int main(int argc, char **argv)
{
    using namespace tidlo;
    MeteredApplication application(argc, argv);
    TidloApp tidlo(quietEnvironment());
    if (!openQuietly(tidlo))
        return 1;
    waitFor(1500);
    application.watch(*tidlo.window());
    const double seconds = secondsOfScan(tidlo.model());
    if (argc > 1 && std::strcmp(argv[1], "--seconds") == 0) {
        std::printf("%f\n", seconds);
        return 0;
    }
    application.print("while scanning");
    std::printf("%-22s %6.2f s\n", "the scan", seconds);
    waitFor(1500);
    printMemory();
    showHundredFindings(tidlo.model());
    waitFor(1000);
    application.forget();
    scroll(*item(*tidlo.window()->contentItem(), "findings"));
    application.print("scrolling 100 rows");

    application.forget();
    QQuickItem &items = lookIntoManyItems(tidlo);
    waitFor(1000);
    application.print("into 100,000 items");
    application.forget();
    scroll(items);
    application.print("scrolling them");
    application.forget();
    sortAndSearch(*items.property("model").value<QObject *>());
    application.print("sorting, searching");
    return 0;
}
