#include "ui/design/TidloLogo.h"

#include "ui/design/ContinuousRectangle.h"
#include "ui/design/SymbolDrawing.h"
#include "ui/design/TidloTheme.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>

#include <cmath>

namespace tidlo {

namespace {

// Fractions of the logo's size.
constexpr double pictureCorner = 0.22;
constexpr double fallbackCorner = 0.24;
constexpr double fallbackSymbol = 0.5; ///< Its font's size.

constexpr int iconSide = 512;

void drawPicture(QPainter &painter, const QRectF &square, const QImage &picture)
{
    // A picture of two colours would be scaled without intermediate tones.
    const QImage colored = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage filling = colored.scaled(square.size().toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.fillPath(continuousRectangle(square, square.width() * pictureCorner), filling);
}

void drawFallback(QPainter &painter, const QRectF &square)
{
    QLinearGradient accents(square.topLeft(), square.bottomRight());
    accents.setColorAt(0, TidloTheme::logoBlue());
    accents.setColorAt(1, TidloTheme::logoGreen());
    painter.fillPath(continuousRectangle(square, square.width() * fallbackCorner), accents);
    const QImage ink = symbolInk(QStringLiteral("sparkles"), square.width() * fallbackSymbol, QFont::Bold, 1);
    QRect middle = ink.rect();
    middle.moveCenter(square.toRect().center());
    painter.drawImage(middle, inColor(ink, Qt::white));
}

} // namespace

QImage findLogo(const Bundle &bundle)
{
    QImage bundled(QFile::decodeName(bundle.path + "/Contents/Resources/logo.png"));
    if (!bundled.isNull())
        return bundled;
    if (!QGuiApplication::instance())
        qFatal("Without an application there is no icon to show");
    return QGuiApplication::windowIcon().pixmap(iconSide).toImage();
}

QImage drawLogo(const QImage &picture, double size, double pixelRatio)
{
    const int side = static_cast<int>(std::round(size * pixelRatio));
    if (side <= 0)
        return {};
    QImage logo(side, side, QImage::Format_ARGB32_Premultiplied);
    logo.fill(Qt::transparent);
    QPainter painter(&logo);
    painter.setRenderHint(QPainter::Antialiasing);
    if (picture.isNull())
        drawFallback(painter, logo.rect());
    else
        drawPicture(painter, logo.rect(), picture);
    painter.end();
    logo.setDevicePixelRatio(pixelRatio);
    return logo;
}

TidloLogo::TidloLogo(QQuickItem *parent)
    : PictureItem(parent)
    , found(findLogo(mainBundle()))
{
    setImplicitSize(side, side);
}

void TidloLogo::setSide(double points)
{
    if (points == side)
        return;
    side = points;
    setImplicitSize(points, points);
    changePicture();
    Q_EMIT sideChanged();
}

QImage TidloLogo::picture(double pixelRatio)
{
    return drawLogo(found, side, pixelRatio);
}

} // namespace tidlo
