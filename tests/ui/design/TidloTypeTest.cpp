#include "ui/design/TidloType.h"

#include "support/PrintQt.h"

#include <QFile>
#include <QFontInfo>
#include <QGuiApplication>
#include <QRawFont>
#include <QScreen>

#include <gmock/gmock.h>

#include <array>

namespace tidlo {

namespace {

struct NamedFont
{
    const char *name; ///< The name of the property that views read.
    double points;
    int weight;
};

constexpr std::array fonts{
    NamedFont{"section", 15, QFont::Bold},        NamedFont{"body", 15, QFont::Normal},
    NamedFont{"bodyStrong", 15, QFont::DemiBold}, NamedFont{"sidebar", 13, QFont::Medium},
    NamedFont{"sidebarStrong", 13, QFont::Bold},  NamedFont{"small", 12, QFont::Medium},
    NamedFont{"smallStrong", 12, QFont::Bold},    NamedFont{"tiny", 10.5, QFont::Bold},
    NamedFont{"title", 22, QFont::Normal},        NamedFont{"headline", 13, QFont::Bold},
    NamedFont{"callout", 12, QFont::Normal},      NamedFont{"subheadline", 11, QFont::Normal},
    NamedFont{"caption", 10, QFont::Normal},
};

/// In device-independent pixels.
double sizeOf(const QFont &font)
{
    return font.pointSizeF() * QGuiApplication::primaryScreen()->logicalDotsPerInch() / 72;
}

class EveryFont : public testing::TestWithParam<NamedFont>
{};

INSTANTIATE_TEST_SUITE_P(TidloType, EveryFont, testing::ValuesIn(fonts),
                         [](const auto &tested) { return tested.param.name; });

} // namespace

TEST_P(EveryFont, HasItsSizeAndWeightInTheDefaultDesign)
{
    const QFont font = TidloType().property(GetParam().name).value<QFont>();
    EXPECT_NEAR(sizeOf(font), GetParam().points, 1e-9);
    EXPECT_EQ(font.weight(), GetParam().weight);
    EXPECT_EQ(QFontInfo(font).family(), QStringLiteral("Inter"));
    EXPECT_EQ(QFontInfo(font).weight(), GetParam().weight); // A real face of that weight, not a thickened one.
}

TEST(TidloType, TheFacesComeWithTheApplication)
{
    struct Face
    {
        const char *file;
        const char *family; ///< The name of the weight may follow it.
        const char *style;
    };
    constexpr std::array faces{
        Face{":/fonts/Inter-Regular.otf", "Inter", "Regular"},    Face{":/fonts/Inter-Medium.otf", "Inter", "Medium"},
        Face{":/fonts/Inter-SemiBold.otf", "Inter", "Semi Bold"}, Face{":/fonts/Inter-Bold.otf", "Inter", "Bold"},
        Face{":/fonts/Quicksand-Bold.ttf", "Quicksand", "Bold"},
    };
    for (const Face &face : faces) {
        const QRawFont font(QLatin1StringView(face.file), 12);
        EXPECT_TRUE(font.isValid()) << face.file;
        EXPECT_TRUE(font.familyName().startsWith(QLatin1StringView(face.family))) << face.file;
        EXPECT_EQ(font.styleName(), QLatin1StringView(face.style)) << face.file;
    }
}

TEST(TidloType, OtherSizesAndWeightsAreInTheDefaultDesignToo)
{
    const QFont font = TidloType::system(44, QFont::Bold);
    EXPECT_EQ(font.family(), QStringLiteral("Inter"));
    EXPECT_NEAR(sizeOf(font), 44, 1e-9);
    EXPECT_EQ(font.weight(), QFont::Bold);
}

TEST(TidloType, TheRoundedDesignIsAnotherFace)
{
    const QFont font = TidloType::rounded(20, QFont::Bold);
    EXPECT_EQ(QFontInfo(font).family(), QStringLiteral("Quicksand"));
    EXPECT_NEAR(sizeOf(font), 20, 1e-9);
    EXPECT_EQ(QFontInfo(font).weight(), QFont::Bold);
}

TEST(TidloType, TrackingAddsPointsBetweenLettersAndNothingElse)
{
    const QFont plain = TidloType().smallStrong();
    QFont tracked = TidloType::tracked(plain, 1.6);
    EXPECT_EQ(tracked.letterSpacingType(), QFont::AbsoluteSpacing);
    EXPECT_NEAR(tracked.letterSpacing(), 1.6, 1.0 / 64); // The precision of a font.

    tracked.setLetterSpacing(plain.letterSpacingType(), plain.letterSpacing());
    EXPECT_EQ(tracked, plain);
}

TEST(TidloType, EveryFontGrowsWithTheScaleAndIsToldOnce)
{
    TidloType type;
    int told = 0;
    QObject::connect(&type, &TidloType::scaleChanged, [&told] { ++told; });
    type.setScale(1.25);
    type.setScale(1.25);
    EXPECT_EQ(told, 1);
    for (const NamedFont &font : fonts) {
        const double plain = TidloType().property(font.name).value<QFont>().pointSizeF();
        EXPECT_NEAR(type.property(font.name).value<QFont>().pointSizeF(), plain * 1.25, 0.01) << font.name;
    }
    EXPECT_NEAR(TidloType::system(10, QFont::Normal, 1.5).pointSizeF(),
                TidloType::system(15, QFont::Normal).pointSizeF(), 0.01);
    EXPECT_NEAR(TidloType::rounded(10, QFont::Normal, 1.5).pointSizeF(),
                TidloType::rounded(15, QFont::Normal).pointSizeF(), 0.01);
}

} // namespace tidlo
