#include "platform/linux/DesktopEntry.h"

#include "support/PrintQt.h"

#include <QFile>

#include <gmock/gmock.h>

namespace tidlo {

using testing::HasSubstr;

TEST(DesktopEntry, ShowsAndStartsTheApplication)
{
    EXPECT_EQ(desktopEntry("/Applications/Tidlo.app/Contents/MacOS/Tidlo", "com.tidlo.storagecleaner"),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=Tidlo\n"
              "GenericName=Storage Cleaner\n"
              "Comment=Finds files that can be removed, and moves them to the Trash\n"
              "Exec=\"/Applications/Tidlo.app/Contents/MacOS/Tidlo\"\n"
              "TryExec=/Applications/Tidlo.app/Contents/MacOS/Tidlo\n"
              "Icon=com.tidlo.storagecleaner\n"
              "Terminal=false\n"
              "Categories=Utility;FileTools;\n"
              "Keywords=disk;space;cleanup;trash;\n"
              "StartupWMClass=com.tidlo.storagecleaner\n");
}

TEST(DesktopEntry, IsTheSameInAPackageWhereTheProgramIsOnThePath)
{
    QFile installed(QStringLiteral(TIDLO_DESKTOP_ENTRY));
    ASSERT_TRUE(installed.open(QIODevice::ReadOnly));

    EXPECT_EQ(installed.readAll(), desktopEntry("tidlo", "com.tidlo.storagecleaner").replace("\"tidlo\"", "tidlo"));
}

TEST(DesktopEntry, StartsAnExecutableOfAnyName)
{
    const auto entry = [](const FilePath &executable) { return desktopEntry(executable, "icon").toStdString(); };

    EXPECT_THAT(entry("/two words/100%"), HasSubstr("\nExec=\"/two words/100%%\"\nTryExec=/two words/100%\n"));
    EXPECT_THAT(entry("/a\"b`c$d"), HasSubstr("\nExec=\"/a\\\\\"b\\\\`c\\\\$d\"\nTryExec=/a\"b`c$d\n"));
    EXPECT_THAT(entry("/a\\b"), HasSubstr("\nExec=\"/a\\\\\\\\b\"\nTryExec=/a\\\\b\n"));
    EXPECT_THAT(entry("/a\nExec=b\t\r"), HasSubstr("\nExec=\"/a\\nExec=b\\t\\r\"\nTryExec=/a\\nExec=b\\t\\r\n"));
    EXPECT_THAT(entry("/a'b;c"), HasSubstr("\nExec=\"/a'b;c\"\nTryExec=/a'b;c\n"));
}

} // namespace tidlo
