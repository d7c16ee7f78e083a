#include "ui/design/SymbolDrawing.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>

namespace tidlo {

namespace {

constexpr double gridToFont = 1.2; ///< The grid's side for a font of size 1.

constexpr QLatin1StringView folder(":/symbols/");
constexpr QLatin1StringView suffix(".svg");

QString fileOf(const QString &name)
{
    return folder + name + suffix;
}

/// How the strokes grow with the weight; interpolated between the rows.
struct Growth
{
    double weight;
    double width;
};

constexpr std::array growths{
    Growth{400, 0},
    Growth{500, 0.2},
    Growth{600, 0.45},
    Growth{700, 0.7},
};

QByteArray withWiderStrokes(const QString &svg, double growth)
{
    static const QRegularExpression width(QStringLiteral(R"(stroke-width="([\d.]+)\")"));
    QString wider;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch &match : width.globalMatch(svg)) {
        wider += QStringView(svg).mid(copied, match.capturedStart(1) - copied);
        wider += QString::number(match.capturedView(1).toDouble() + growth);
        copied = match.capturedEnd(1);
    }
    wider += QStringView(svg).mid(copied);
    return wider.toUtf8();
}

} // namespace

QStringList symbolNames()
{
    QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (QString &name : names)
        name.chop(suffix.size());
    return names;
}

bool hasSymbol(const QString &name)
{
    return QFile::exists(fileOf(name));
}

double strokeGrowth(int weight)
{
    const auto *const heavier = std::ranges::find_if(
        growths, [weight](double row) { return row >= weight; }, &Growth::weight);
    if (heavier == growths.begin())
        return growths.front().width;
    if (heavier == growths.end())
        return growths.back().width;
    const auto *const lighter = heavier - 1;
    return std::lerp(lighter->width, heavier->width, (weight - lighter->weight) / (heavier->weight - lighter->weight));
}

QByteArray symbolDrawing(const QString &name, int weight)
{
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return withWiderStrokes(QString::fromUtf8(file.readAll()), strokeGrowth(weight));
}

double symbolBox(double size)
{
    return 2 * std::ceil(size * gridToFont / 2);
}

QImage symbolInk(const QString &name, double size, int weight, double pixelRatio)
{
    QSvgRenderer drawing(symbolDrawing(name, weight));
    if (!drawing.isValid())
        return {};
    const int side = static_cast<int>(std::round(symbolBox(size) * pixelRatio));
    const double gridSide = size * gridToFont * pixelRatio;
    const double margin = (side - gridSide) / 2;
    QImage paper(side, side, QImage::Format_Grayscale8);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    drawing.render(&painter, QRectF(margin, margin, gridSide, gridSide));
    painter.end();
    paper.invertPixels();
    paper.reinterpretAsFormat(QImage::Format_Alpha8);
    paper.setDevicePixelRatio(pixelRatio);
    return paper;
}

QImage inColor(const QImage &ink, const QColor &color)
{
    QImage colored = ink.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&colored);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(colored.rect(), color);
    return colored;
}

} // namespace tidlo
