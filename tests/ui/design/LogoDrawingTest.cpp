#include "support/TemporaryHome.h"
#include "ui/design/ContinuousRectangle.h"
#include "ui/design/TidloLogo.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

QImage plain(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

Bundle bundleIn(const TemporaryHome &home)
{
    return {.path = home / "Tidlo.app", .executable = home / "Tidlo.app/Contents/MacOS/tidlo", .identifier = {}};
}

QColor middleOf(const QImage &image)
{
    return image.pixelColor(image.rect().center());
}

/// How many pixels of its square a picture leaves empty in the corners.
double emptyPart(const QImage &image)
{
    double empty = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            empty += 1 - image.pixelColor(x, y).alphaF();
    }
    return empty;
}

double emptyPartOfRounded(int side, double radius)
{
    QImage image = plain(QSize(side, side), Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRectangle(image.rect(), radius), Qt::black);
    painter.end();
    return emptyPart(image);
}

/// Sets the application's icon while this object exists.
class Icon final
{
public:
    explicit Icon(const QIcon &icon) { QGuiApplication::setWindowIcon(icon); }
    ~Icon() { QGuiApplication::setWindowIcon(QIcon()); }
    Icon(const Icon &) = delete;
    Icon &operator=(const Icon &) = delete;
};

} // namespace

TEST(LogoDrawing, ThePictureOfTheBundleComesFirst)
{
    const TemporaryHome home;
    home.folder("Tidlo.app/Contents/Resources");
    const QString file = QFile::decodeName(home / "Tidlo.app/Contents/Resources/logo.png");
    ASSERT_TRUE(plain({64, 64}, Qt::red).save(file));
    const Icon icon(QPixmap::fromImage(plain({64, 64}, Qt::blue)));

    EXPECT_EQ(middleOf(findLogo(bundleIn(home))), QColor(Qt::red));
}

TEST(LogoDrawing, WithoutAPictureInTheBundleItIsTheApplicationsIcon)
{
    const TemporaryHome home;
    const Icon icon(QPixmap::fromImage(plain({64, 64}, Qt::blue)));

    EXPECT_EQ(middleOf(findLogo(bundleIn(home))), QColor(Qt::blue));
}

TEST(LogoDrawing, AFileThatIsNoPictureCountsAsNone)
{
    const TemporaryHome home;
    home.file("Tidlo.app/Contents/Resources/logo.png");
    const Icon icon(QPixmap::fromImage(plain({64, 64}, Qt::blue)));

    EXPECT_EQ(middleOf(findLogo(bundleIn(home))), QColor(Qt::blue));
}

TEST(LogoDrawing, WithoutIconThereIsNoPicture)
{
    const TemporaryHome home;
    EXPECT_TRUE(findLogo(bundleIn(home)).isNull());
}

TEST(LogoDrawing, ThePictureIsReadAnewEachTime)
{
    const TemporaryHome home;
    home.folder("Tidlo.app/Contents/Resources");
    const QString file = QFile::decodeName(home / "Tidlo.app/Contents/Resources/logo.png");
    ASSERT_TRUE(plain({64, 64}, Qt::red).save(file));
    ASSERT_EQ(middleOf(findLogo(bundleIn(home))), QColor(Qt::red));

    ASSERT_TRUE(plain({64, 64}, Qt::green).save(file));

    EXPECT_EQ(middleOf(findLogo(bundleIn(home))), QColor(Qt::green));
}

TEST(LogoDrawing, APictureIsStretchedOverTheSquare)
{
    QImage wide = plain({200, 50}, Qt::red);
    QPainter(&wide).fillRect(100, 0, 100, 50, Qt::blue);

    const QImage logo = drawLogo(wide, 40, 2);

    EXPECT_EQ(logo.size(), QSize(80, 80));
    EXPECT_EQ(logo.devicePixelRatio(), 2);
    EXPECT_EQ(logo.pixelColor(20, 1), QColor(Qt::red));
    EXPECT_EQ(logo.pixelColor(20, 78), QColor(Qt::red));
    EXPECT_EQ(logo.pixelColor(60, 1), QColor(Qt::blue));
    EXPECT_EQ(logo.pixelColor(60, 78), QColor(Qt::blue));
}

TEST(LogoDrawing, APictureOfOneColorKeepsIt)
{
    QImage red(64, 64, QImage::Format_Mono);
    red.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 0)});
    red.fill(0);

    const QImage logo = drawLogo(red, 23, 1); // Less than half the size: Qt scales that in another way.

    for (int x = 0; x < logo.width(); ++x)
        EXPECT_EQ(logo.pixelColor(x, 11), QColor(Qt::red)) << x;
}

TEST(LogoDrawing, APicturesCornersAreRoundedBy22HundredthsOfTheSize)
{
    constexpr int side = 200;
    EXPECT_NEAR(emptyPart(drawLogo(plain({64, 64}, Qt::red), side, 1)), emptyPartOfRounded(side, side * 0.22), 1);
    EXPECT_NEAR(emptyPart(drawLogo(plain({64, 64}, Qt::red), side / 2.0, 2)), emptyPartOfRounded(side, side * 0.22), 1);
}

TEST(LogoDrawing, TheFallbacksCornersAreRoundedBy24HundredthsOfTheSize)
{
    constexpr int side = 200;
    EXPECT_NEAR(emptyPart(drawLogo(QImage(), side, 1)), emptyPartOfRounded(side, side * 0.24), 1);
}

TEST(LogoDrawing, TheFallbackRunsFromBlueAtTheTopLeadingCornerToGreenAtTheOther)
{
    const QImage logo = drawLogo(QImage(), 200, 1);
    const auto expectShare = [&logo](int at, double share) {
        const QColor color = logo.pixelColor(at, at);
        EXPECT_NEAR(color.redF(), 0.388 + (0.502 - 0.388) * share, 0.01);
        EXPECT_NEAR(color.greenF(), 0.682 + (0.741 - 0.682) * share, 0.01);
        EXPECT_NEAR(color.blueF(), 0.718 + (0.769 - 0.718) * share, 0.01);
    };
    expectShare(20, 0.1);
    expectShare(180, 0.9);
}

TEST(LogoDrawing, TheFallbackHasWhiteSparklesHalfAsLargeInItsMiddle)
{
    const QImage logo = drawLogo(QImage(), 200, 1);
    QRect white;
    for (int y = 0; y < logo.height(); ++y) {
        for (int x = 0; x < logo.width(); ++x) {
            if (logo.pixel(x, y) == 0xffffffff)
                white |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_NEAR(white.center().x(), 100, 5);
    EXPECT_NEAR(white.center().y(), 100, 5);
    EXPECT_NEAR(white.height(), 0.5 * 200, 10);
}

TEST(LogoDrawing, ASizeOfNothingDrawsNothing)
{
    EXPECT_TRUE(drawLogo(plain({64, 64}, Qt::red), 0, 2).isNull());
    EXPECT_TRUE(drawLogo(QImage(), -1, 2).isNull());
}

TEST(LogoDrawing, TheApplicationsOwnPictureIsInItsResources)
{
    const QImage logo(QStringLiteral(":/logo.png"));
    EXPECT_EQ(logo.size(), QSize(512, 512));
    EXPECT_EQ(qAlpha(logo.pixel(0, 0)), 0);
    EXPECT_EQ(qAlpha(logo.pixel(256, 20)), 255);
}

} // namespace tidlo
