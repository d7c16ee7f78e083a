// Scans the home folder once with the given number of workers: scan_once <workers>. To compare numbers of workers.

#include "platform/LiveFileManager.h"
#include "scanner/FileSizeScanner.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

int main(int count, char **arguments)
{
    using namespace tidlo;
    if (count != 2) {
        std::fprintf(stderr, "usage: scan_once <workers>\n");
        return 2;
    }
    const QCoreApplication application(count, arguments);
    FileSizeScanner scanner(std::make_shared<LiveFileManager>(DirectoryWalker(std::atoi(arguments[1]))));
    const ScanResult result = QCoro::waitFor(scanner.scan([](double, const QString &) {}));
    std::printf("%lld\n", result.snapshot.totals.totalBytes);
}
