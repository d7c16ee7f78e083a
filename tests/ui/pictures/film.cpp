/// film <folder> <theme>: draws a whole scan into the folder, as pictures to be shown for 100 ms each.

#include "scanner/ScanSteps.h"
#include "ui/pictures/Studio.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

namespace {

using namespace tidlo;

constexpr std::chrono::milliseconds frame(100);
constexpr QSize size(1350, 720);
constexpr QSize shown(900, 480);

/// Draws what is shown now as this many frames.
class Film final
{
public:
    Film(Studio &studio, const QDir &folder)
        : studio(studio)
        , folder(folder)
    {}

    bool draw(int frames)
    {
        bool isWritten = true;
        for (int count = 0; count < frames; ++count) {
            const QImage picture =
                studio.pictureAfter(frame).scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            isWritten = picture.save(folder.filePath(QStringLiteral("%1.png").arg(++drawn, 3, 10, QLatin1Char('0')))) &&
                        isWritten;
        }
        return isWritten;
    }

private:
    Studio &studio;
    QDir folder;
    int drawn = 0;
};

bool drawScan(Studio &studio, Film film)
{
    bool isWritten = film.draw(12);
    for (const ScanStep &step : scanSteps) {
        studio.show([&step](OpenModel &app, QQuickWindow &) { showScan(app, step.fraction, step.label); });
        isWritten = film.draw(8) && isWritten;
    }
    studio.show([](OpenModel &app, QQuickWindow &) {
        showResults(app);
        app.setIsGeneratingAI(true);
    });
    isWritten = film.draw(12) && isWritten;
    studio.show([](OpenModel &app, QQuickWindow &) { showResults(app); });
    return film.draw(30) && isWritten;
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: film <folder> <theme>\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    Studio studio(QString::fromLocal8Bit(argv[2]), size);
    if (!drawScan(studio, Film(studio, folder))) {
        std::fprintf(stderr, "film: cannot write into %s\n", qPrintable(folder));
        return 1;
    }
    return 0;
}
