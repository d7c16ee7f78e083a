/// screenshots <folder> <theme> <width> <height>: draws every screen in every state into the folder.
/// scripts/screenshots runs it for each theme, size and scale.

#include "ui/pictures/Studio.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    using namespace tidlo;
    const QGuiApplication application(argc, argv);
    if (argc != 5) {
        std::fputs("usage: screenshots <folder> <theme> <width> <height>\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    Studio studio(QString::fromLocal8Bit(argv[2]), {QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt()});
    for (const Shot &shot : shots()) {
        const QString file = folder.filePath(QLatin1StringView(shot.name) + QStringLiteral(".png"));
        if (!studio.picture(shot).save(file, "PNG", 0)) {
            std::fprintf(stderr, "screenshots: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
