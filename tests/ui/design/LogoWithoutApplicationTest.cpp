#include "platform/Bundle.h"
#include "support/TemporaryHome.h"
#include "ui/design/TidloLogo.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tidlo {

// A program without an application object.

TEST(LogoWithoutApplication, LookingForAnIconIsFatal)
{
    const Bundle nowhere{.path = "/nonexistent/Tidlo.app", .executable = {}, .identifier = {}};
    EXPECT_DEATH(findLogo(nowhere), "Without an application there is no icon");
}

TEST(LogoWithoutApplication, APictureInTheBundleIsEnough)
{
    const TemporaryHome home;
    const FilePath resources = home.folder("Tidlo.app/Contents/Resources");
    ASSERT_TRUE(QFile::copy(QStringLiteral(":/logo.png"), QFile::decodeName(resources + "/logo.png")));

    EXPECT_FALSE(findLogo({.path = home / "Tidlo.app", .executable = {}, .identifier = {}}).isNull());
}

} // namespace tidlo
