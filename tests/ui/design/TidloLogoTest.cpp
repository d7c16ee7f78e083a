#include "ui/design/TidloLogo.h"

#include "support/PrintQt.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QQuickWindow>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

class TidloLogoTest : public testing::Test
{
protected:
    TidloLogoTest()
    {
        window.resize(60, 60);
        window.setColor(Qt::black);
        window.show();
    }
    ~TidloLogoTest() override { QGuiApplication::setWindowIcon(QIcon()); }

    static void setIcon(const QColor &color)
    {
        QPixmap pixmap(64, 64);
        pixmap.fill(color);
        QGuiApplication::setWindowIcon(pixmap);
    }

    QColor seenAt(QPoint point)
    {
        const QImage image = window.grabWindow();
        return image.pixelColor(point * window.effectiveDevicePixelRatio());
    }

    QQuickWindow window;
};

} // namespace

TEST_F(TidloLogoTest, IsASquareOfItsSize)
{
    setIcon(Qt::red);
    TidloLogo logo(window.contentItem());
    logo.setSide(48);

    EXPECT_EQ(logo.implicitWidth(), 48);
    EXPECT_EQ(logo.implicitHeight(), 48);
    EXPECT_EQ(seenAt({24, 0}), QColor(Qt::red));
    EXPECT_EQ(seenAt({47, 24}), QColor(Qt::red));
    EXPECT_EQ(seenAt({48, 24}), QColor(Qt::black));
    EXPECT_EQ(seenAt({0, 0}), QColor(Qt::black)); // The corner is round.
}

TEST_F(TidloLogoTest, EachOneLooksForItsPictureWhenItIsMade)
{
    setIcon(Qt::red);
    TidloLogo earlier(window.contentItem());
    earlier.setSide(20);
    ASSERT_EQ(seenAt({10, 10}), QColor(Qt::red));

    setIcon(Qt::green);
    TidloLogo later(window.contentItem());
    later.setSide(20);
    later.setX(30);

    EXPECT_EQ(seenAt({10, 10}), QColor(Qt::red));
    EXPECT_EQ(seenAt({40, 10}), QColor(Qt::green));
}

TEST_F(TidloLogoTest, IsDrawnWhereThereIsNoPictureAtAll)
{
    TidloLogo logo(window.contentItem());
    logo.setSide(48);

    const QColor corner = seenAt({7, 7}); // Near the first stop of the gradient.
    EXPECT_NEAR(corner.redF(), 0.388 + (0.502 - 0.388) * 7 / 48, 0.01);
    EXPECT_NEAR(corner.greenF(), 0.682 + (0.741 - 0.682) * 7 / 48, 0.01);
}

} // namespace tidlo
