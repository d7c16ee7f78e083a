#include "platform/UserDefaults.h"

#include "support/InChild.h"
#include "support/OwnMounts.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <cstdlib>

namespace tidlo {

using testing::HasSubstr;

namespace {

std::string contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "missing";
}

} // namespace

TEST(UserDefaultsOnLinux, KeepTheOldFileWholeWhenThereIsNoRoom)
{
    const TemporaryHome home;
    inOwnMounts([&] {
        const FilePath small = home.folder("small");
        mountMemory(small, "size=64k");
        const QString full = QString::fromUtf8(small + "/preferences.conf");
        UserDefaults(full).set(UserDefaults::theme, QStringLiteral("system"));
        QFile filling(QString::fromUtf8(small + "/filling"));
        EXPECT_TRUE(filling.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filling.write(QByteArray(4'096, 'x')) > 0) {
        }
        const std::string before = contentOf(full);
        EXPECT_THAT(before, HasSubstr("tidloTheme=system"));

        UserDefaults defaults(full);
        defaults.set(UserDefaults::theme, QStringLiteral("light"));

        EXPECT_EQ(defaults.string(UserDefaults::theme, {}), QStringLiteral("light"));
        EXPECT_EQ(contentOf(full), before);
    });
}

TEST(UserDefaultsOnLinux, OfTheUserLieInTheirFolderForPreferences)
{
    const TemporaryHome home;
    const ChildResult result = inChild([&] {
        setenv("XDG_CONFIG_HOME", (home / "config").constData(), 1);
        UserDefaults().set(UserDefaults::theme, QStringLiteral("light"));
        return true;
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(contentOf(QString::fromUtf8(home / "config/com.tidlo.storagecleaner.conf")),
                HasSubstr("tidloTheme=light"));
}

} // namespace tidlo
