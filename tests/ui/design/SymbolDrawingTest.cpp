#include "ui/design/SymbolDrawing.h"

#include "support/PrintQt.h"

#include <QFont>
#include <QPainter>
#include <QSvgRenderer>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace tidlo {

namespace {

constexpr int finePixels = 10; ///< Pixels in a unit of the grid.

/// The drawing on a sheet twice as wide as the grid, so that ink outside of the grid is seen too.
QImage onWideSheet(const QString &name, int weight)
{
    constexpr int side = static_cast<int>(2 * symbolGrid) * finePixels;
    QImage sheet(side, side, QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    QSvgRenderer drawing(symbolDrawing(name, weight));
    EXPECT_TRUE(drawing.isValid());
    QPainter painter(&sheet);
    drawing.render(&painter, QRectF(side / 4.0, side / 4.0, side / 2.0, side / 2.0));
    return sheet;
}

/// The part that the ink covers, in units of the grid.
QRectF inkedPart(const QString &name, int weight)
{
    const QImage sheet = onWideSheet(name, weight);
    QRect inked;
    for (int y = 0; y < sheet.height(); ++y) {
        const uchar *const line = sheet.constScanLine(y);
        for (int x = 0; x < sheet.width(); ++x) {
            if (line[x] < 128)
                inked |= QRect(x, y, 1, 1);
        }
    }
    const double origin = symbolGrid / 2;
    return {inked.x() / double(finePixels) - origin, inked.y() / double(finePixels) - origin,
            inked.width() / double(finePixels), inked.height() / double(finePixels)};
}

/// The sum of the opacities in one line of \a ink, in pixels.
double inkInLine(const QImage &ink, int y)
{
    const uchar *const line = ink.constScanLine(y);
    return std::accumulate(line, line + ink.width(), 0.0) / 255;
}

double allInk(const QImage &ink)
{
    double sum = 0;
    for (int y = 0; y < ink.height(); ++y)
        sum += inkInLine(ink, y);
    return sum;
}

constexpr std::array allWeights{QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold};

} // namespace

TEST(SymbolDrawing, StrokesGrowWithTheWeightAndEvenlyBetweenTheNamedOnes)
{
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::Normal), 0);
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::Medium), 0.2);
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::DemiBold), 0.45);
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::Bold), 0.7);
    EXPECT_DOUBLE_EQ(strokeGrowth(550), 0.325);
}

TEST(SymbolDrawing, WeightsBeyondTheTableAreDrawnAsItsEnds)
{
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::Thin), strokeGrowth(QFont::Normal));
    EXPECT_DOUBLE_EQ(strokeGrowth(QFont::Black), strokeGrowth(QFont::Bold));
}

TEST(SymbolDrawing, ALineAcrossTheCircleMeetsTwoStrokesOfTheWeightsWidth)
{
    constexpr double regularStroke = 1.6;
    constexpr double size = 200; // Its grid is 240 points, ten to a unit.
    for (const int weight : allWeights) {
        const QImage ink = symbolInk(QStringLiteral("circle"), size, weight, 1);
        EXPECT_NEAR(inkInLine(ink, ink.height() / 2) / finePixels, 2 * (regularStroke + strokeGrowth(weight)), 0.05);
    }
}

TEST(SymbolDrawing, EveryDrawingIsHeavierInEveryHeavierWeight)
{
    for (const QString &name : symbolNames()) {
        double lighter = 0;
        for (const int weight : allWeights) {
            const double ink = allInk(symbolInk(name, 40, weight, 2));
            EXPECT_GT(ink, lighter) << qPrintable(name) << " at " << weight;
            lighter = ink;
        }
    }
}

TEST(SymbolDrawing, EveryDrawingStaysWithinTheGridAtTheBoldWeight)
{
    const QRectF grid(0, 0, symbolGrid, symbolGrid);
    for (const QString &name : symbolNames())
        EXPECT_TRUE(grid.contains(inkedPart(name, QFont::Bold))) << qPrintable(name);
}

TEST(SymbolDrawing, EveryDrawingIsAboutAsLargeAsTheOthers)
{
    for (const QString &name : symbolNames()) {
        const QRectF inked = inkedPart(name, QFont::Normal);
        EXPECT_GE(std::max(inked.width(), inked.height()), 14) << qPrintable(name);
    }
}

TEST(SymbolDrawing, EveryDrawingStandsInTheMiddle)
{
    constexpr double tolerance = 1; // Symbols are centred by eye, not by measure.
    for (const QString &name : symbolNames()) {
        const QPointF centre = inkedPart(name, QFont::DemiBold).center();
        EXPECT_NEAR(centre.x(), symbolGrid / 2, tolerance) << qPrintable(name);
        EXPECT_NEAR(centre.y(), symbolGrid / 2, tolerance) << qPrintable(name);
    }
}

TEST(SymbolDrawing, WhiteTakesInkAway)
{
    // When a square is filled except for a check mark
    const QImage ink = symbolInk(QStringLiteral("checkmark.square.fill"), 200, QFont::Normal, 1);

    // Then there is ink beside the mark, and none where its lines meet.
    EXPECT_EQ(qAlpha(ink.pixel(5 * finePixels, 12 * finePixels)), 255);
    EXPECT_EQ(qAlpha(ink.pixel(static_cast<int>(10.8 * finePixels), static_cast<int>(15.8 * finePixels))), 0);
}

TEST(SymbolDrawing, TheBoxIsATouchLargerThanTheFontAndEven)
{
    EXPECT_EQ(symbolBox(11), 14);
    EXPECT_EQ(symbolBox(12), 16);
    EXPECT_EQ(symbolBox(15), 18);
    EXPECT_EQ(symbolBox(16), 20);
    EXPECT_EQ(symbolBox(20), 24);
    EXPECT_EQ(symbolBox(40), 48);
}

TEST(SymbolDrawing, InkHasThePixelsOfTheScreen)
{
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        const QImage ink = symbolInk(QStringLiteral("house"), 16, QFont::DemiBold, ratio);
        EXPECT_EQ(ink.size(), QSize(20, 20) * ratio);
        EXPECT_EQ(ink.devicePixelRatio(), ratio);
    }
}

TEST(SymbolDrawing, InkTakesAColorAndItsOpacity)
{
    const QImage ink = symbolInk(QStringLiteral("moon.fill"), 40, QFont::Normal, 1);
    QPoint inside(24, 24);
    while (qAlpha(ink.pixel(inside)) != 255)
        inside += QPoint(-1, 1); // The lower left part of the moon is full.

    EXPECT_EQ(inColor(ink, QColor(10, 20, 30)).pixelColor(inside), QColor(10, 20, 30));
    EXPECT_EQ(qAlpha(inColor(ink, QColor(255, 255, 255, 51)).pixel(inside)), 51);
    EXPECT_EQ(qAlpha(inColor(ink, Qt::red).pixel(0, 0)), 0);
}

TEST(SymbolDrawing, AnUnknownNameHasNoDrawing)
{
    EXPECT_TRUE(hasSymbol(QStringLiteral("house")));
    EXPECT_FALSE(hasSymbol(QStringLiteral("unheard.of")));
    EXPECT_EQ(symbolDrawing(QStringLiteral("unheard.of"), QFont::Normal), QByteArray());
    EXPECT_TRUE(symbolInk(QStringLiteral("unheard.of"), 16, QFont::Normal, 1).isNull());
    EXPECT_TRUE(symbolInk(QString(), 16, QFont::Normal, 1).isNull());
}

} // namespace tidlo
