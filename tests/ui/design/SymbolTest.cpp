#include "ui/design/Symbol.h"

#include "support/PrintQt.h"
#include "ui/design/SymbolDrawing.h"

#include <QPainter>
#include <QQuickWindow>

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tidlo {

namespace {

/// A symbol of 16 points in the middle of a black window of 40 by 40.
class SymbolTest : public testing::Test
{
protected:
    SymbolTest()
        : symbol(new Symbol(window.contentItem()))
    {
        window.resize(40, 40);
        window.setColor(Qt::black);
        symbol->setName(QStringLiteral("square"));
        symbol->setColor(Qt::white);
        symbol->setPosition(QPointF(10, 10));
        window.show();
    }

    QImage seen() { return window.grabWindow().convertToFormat(QImage::Format_RGB32); }

    /// The expected pixels if each pixel of the picture falls on one of the screen.
    QImage expected(const QPoint &position)
    {
        QImage image = black();
        QPainter(&image).drawImage(position, symbol->picture(image.devicePixelRatio()));
        return image;
    }

    QImage black()
    {
        const double ratio = window.effectiveDevicePixelRatio();
        QImage image(window.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
        return image;
    }

    QQuickWindow window;
    Symbol *symbol; ///< In the window.
};

std::vector<std::string> warnings;

/// Records warnings while this object exists.
class Warnings final
{
public:
    Warnings()
    {
        warnings.clear();
        before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings.push_back(text.toStdString()); });
    }
    ~Warnings() { qInstallMessageHandler(before); }

private:
    QtMessageHandler before;
};

} // namespace

TEST_F(SymbolTest, IsSharp)
{
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
}

TEST_F(SymbolTest, StandsInTheMiddleOfALargerItemBetweenNoTwoPoints)
{
    symbol->setSize(QSizeF(25, 31));

    EXPECT_EQ(seen(), expected(QPoint(10 + 3, 10 + 6)));
}

TEST_F(SymbolTest, FollowsItsNameSizeWeightAndColor)
{
    seen();
    symbol->setName(QStringLiteral("gearshape"));
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
    symbol->setFontSize(20);
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
    symbol->setWeight(QFont::Bold);
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
    symbol->setColor(Qt::red);
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
}

TEST_F(SymbolTest, ANewColorReplacesTheOldOneWhole)
{
    symbol->setName(QStringLiteral("moon.fill"));
    symbol->setColor(Qt::red);
    seen();
    symbol->setColor(Qt::blue);

    const QImage image = seen();
    int blue = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            EXPECT_EQ(qRed(image.pixel(x, y)), 0);
            blue = std::max(blue, qBlue(image.pixel(x, y)));
        }
    }
    EXPECT_EQ(blue, 255);
}

TEST_F(SymbolTest, ItsBoxFollowsTheFont)
{
    symbol->setFontSize(11);
    EXPECT_EQ(symbol->implicitWidth(), 14);
    EXPECT_EQ(symbol->implicitHeight(), 14);
    symbol->setFontSize(40);
    EXPECT_EQ(symbol->implicitWidth(), 48);
}

TEST_F(SymbolTest, AnUnknownNameShowsNothingAndWarnsOnce)
{
    const Warnings heard;
    seen();
    symbol->setName(QStringLiteral("unheard.of"));
    seen();
    symbol->setWeight(QFont::Bold);
    symbol->setColor(Qt::red);

    EXPECT_TRUE(symbol->picture(1).isNull());
    EXPECT_EQ(seen(), black());
    EXPECT_THAT(warnings, testing::ElementsAre(testing::EndsWith("There is no symbol unheard.of")));
}

TEST_F(SymbolTest, NoNameIsNothingToWarnOf)
{
    const Warnings heard;
    symbol->setName(QString());
    EXPECT_TRUE(symbol->picture(1).isNull());
    EXPECT_THAT(warnings, testing::IsEmpty());
}

TEST_F(SymbolTest, ShowsAgainAfterAnUnknownName)
{
    const Warnings heard;
    symbol->setName(QStringLiteral("unheard.of"));
    seen();
    symbol->setName(QStringLiteral("house"));
    EXPECT_EQ(seen(), expected(QPoint(10, 10)));
}

} // namespace tidlo
