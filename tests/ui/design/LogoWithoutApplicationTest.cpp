#include "platform/BundleResource.h"
#include "ui/design/LogoDrawing.h"

#include <gtest/gtest.h>

// A program without an application object.

TEST(LogoWithoutApplication, LookingForAnIconIsFatal)
{
    EXPECT_DEATH(findLogo(bundleResource(QStringLiteral("logo.png"))), "Without an application there is no icon");
}

TEST(LogoWithoutApplication, APictureThatIsThereIsEnough)
{
    EXPECT_FALSE(findLogo(QStringLiteral(":/logo.png")).isNull());
}
