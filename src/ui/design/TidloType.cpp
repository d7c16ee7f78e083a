#include "ui/design/TidloType.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

#include <mutex>

namespace tidlo {

namespace {

void loadFonts()
{
    const QDir fonts(QStringLiteral(":/fonts"));
    for (const QString &name : fonts.entryList())
        QFontDatabase::addApplicationFont(fonts.filePath(name));
}

QFont fontOf(const QString &family, double points, int weight)
{
    static std::once_flag areLoaded;
    std::call_once(areLoaded, loadFonts);
    constexpr double pointsInAnInch = 72; // Font sizes use this value, whatever the screen.
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double pixelsInAnInch = screen ? screen->logicalDotsPerInch() : 96;
    QFont font(family);
    font.setPointSizeF(points * pointsInAnInch / pixelsInAnInch);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

void TidloType::setScale(double scale)
{
    if (scale == textScale)
        return;
    textScale = scale;
    Q_EMIT scaleChanged();
}

QFont TidloType::system(double points, int weight, double scale)
{
    return fontOf(QStringLiteral("Inter"), points * scale, weight);
}

QFont TidloType::rounded(double points, int weight, double scale)
{
    return fontOf(QStringLiteral("Quicksand"), points * scale, weight);
}

QFont TidloType::tracked(const QFont &font, double points)
{
    QFont tracked = font;
    tracked.setLetterSpacing(QFont::AbsoluteSpacing, points);
    return tracked;
}

} // namespace tidlo
