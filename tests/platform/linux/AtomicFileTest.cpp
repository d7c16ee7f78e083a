#include "platform/AtomicFile.h"

#include "support/OwnMounts.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <cerrno>

namespace tidlo {

using testing::Key;
using testing::UnorderedElementsAre;

TEST(AtomicFileOnLinux, StaysTheOldOneWhenThereIsNoRoom)
{
    const TemporaryHome home;
    inOwnMounts([&] {
        mountMemory(home.folder("folder"), "size=64k");
        const FilePath path = home / "folder/file";
        EXPECT_EQ(writeAtomically(path, "old"), 0);

        EXPECT_EQ(writeAtomically(path, QByteArray(100'000, 'x')), ENOSPC);

        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), "old");
        EXPECT_THAT(home.inventory(), UnorderedElementsAre(Key("."), Key("folder"), Key("folder/file")));
    });
}

} // namespace tidlo
