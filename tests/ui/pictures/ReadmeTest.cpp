#include "cli/FindingsText.h"
#include "support/PrintQt.h"
#include "ui/DemoState.h"

#include <QFile>

#include <gmock/gmock.h>

namespace tidlo {

TEST(Readme, ShowsWhatTheTerminalSaysOfTheHomeInThePictures)
{
    QFile readme(QStringLiteral(TIDLO_README));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));

    const QString said =
        findingsText(demoFindings(), ListedPaths::none, Terminal{}) + u'\n' + totalsText(demoTotals(), {}, Terminal{});

    EXPECT_THAT(readme.readAll().toStdString(), testing::HasSubstr("```\n" + said.toStdString() + "```\n"));
}

} // namespace tidlo
