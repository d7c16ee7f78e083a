#include "support/PrintQt.h"
#include "ui/pictures/PictureDifference.h"
#include "ui/pictures/Studio.h"

#include <QDir>
#include <QQuickWindow>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

constexpr QSize leastContent(1350, 720);
constexpr int roundedPixels = 40; // Of a million: edges that another machine rounds differently.

/// The folder for pictures that differ from the stored ones.
const QDir differences(QStringLiteral(TIDLO_PICTURE_DIFFERENCES));

class Pictures : public testing::TestWithParam<const char *>
{
protected:
    static QString theme() { return QLatin1StringView(GetParam()); }

    static QString keptFile(const Shot &shot)
    {
        return QStringLiteral(TIDLO_PICTURES "/%1-1350x720@1x/%2.png").arg(theme(), QLatin1StringView(shot.name));
    }

    /// Stores the pictures that differ.
    static void compareWithKept(const Shot &shot, const QImage &drawn)
    {
        const PictureDifference difference = differenceOf(QImage(keptFile(shot)), drawn);
        if (difference.pixels <= roundedPixels)
            return;
        differences.mkpath(QStringLiteral("."));
        const QString file = differences.filePath(theme() + QLatin1Char('-') + QLatin1StringView(shot.name));
        drawn.save(file + QStringLiteral("-drawn.png"));
        difference.map.save(file + QStringLiteral("-difference.png"));
        ADD_FAILURE() << difference.pixels << " pixels differ, see " << qPrintable(file)
                      << "-*.png. If it is meant to look so, scripts/screenshots keeps it.";
    }
};

} // namespace

TEST_P(Pictures, EveryStateThatIsKeptLooksSo)
{
    Studio studio(theme(), leastContent);
    int compared = 0;
    for (const Shot &shot : shots()) {
        SCOPED_TRACE(shot.name);
        const QImage drawn = studio.picture(shot); // Draws unstored states too: each state follows from the one before.
        if (QFile::exists(keptFile(shot))) {
            compareWithKept(shot, drawn);
            ++compared;
        }
    }
    EXPECT_GT(compared, 0);
}

INSTANTIATE_TEST_SUITE_P(, Pictures, testing::Values("dark", "light"), [](const auto &tested) { return tested.param; });

TEST(KeptPictures, HoldEveryStateInTheDarkScheme)
{
    for (const Shot &shot : shots())
        EXPECT_TRUE(
            QFile::exists(QStringLiteral(TIDLO_PICTURES "/dark-1350x720@1x/%1.png").arg(QLatin1StringView(shot.name))))
            << shot.name;
}

TEST(PictureDifference, APixelThatIsRoundedOtherwiseIsNone)
{
    QImage kept(3, 2, QImage::Format_ARGB32_Premultiplied), drawn = kept;
    kept.fill(qRgb(100, 100, 100));
    drawn.fill(qRgb(100, 100, 108));

    EXPECT_EQ(differenceOf(kept, drawn).pixels, 0);
}

TEST(PictureDifference, APixelOfAnotherColorIsCountedAndMarked)
{
    QImage kept(3, 2, QImage::Format_ARGB32_Premultiplied), drawn = kept;
    kept.fill(qRgb(100, 100, 100));
    drawn.fill(qRgb(100, 100, 100));
    drawn.setPixel(2, 1, qRgb(100, 100, 109));

    const PictureDifference difference = differenceOf(kept, drawn);

    EXPECT_EQ(difference.pixels, 1);
    EXPECT_EQ(difference.map.pixel(2, 1), qRgb(255, 0, 0));
    EXPECT_NE(difference.map.pixel(1, 1), qRgb(255, 0, 0));
}

TEST(PictureDifference, APictureOfAnotherSizeDiffersEverywhere)
{
    QImage drawn(3, 2, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::white);

    EXPECT_EQ(differenceOf(QImage(), drawn).pixels, 6);
}

} // namespace tidlo
