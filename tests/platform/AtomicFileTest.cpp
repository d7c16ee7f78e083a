#include "platform/AtomicFile.h"

#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <cerrno>

namespace tidlo {

using testing::Key;
using testing::UnorderedElementsAre;

namespace {

class AtomicFile : public testing::Test
{
protected:
    static QByteArray contentOf(const FilePath &path)
    {
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.constData();
        return file.readAll();
    }

    TemporaryHome home;
    const FilePath path = home / "folder/file";
};

} // namespace

TEST_F(AtomicFile, IsWrittenWithItsFolders)
{
    EXPECT_EQ(writeAtomically(path, "content"), 0);

    EXPECT_EQ(contentOf(path), "content");
    EXPECT_EQ(home.inventory().at("folder/file").mode, mode_t(S_IFREG | 0600));
    EXPECT_THAT(home.inventory(), UnorderedElementsAre(Key("."), Key("folder"), Key("folder/file")));
}

TEST_F(AtomicFile, HasThePermissionsAskedForWhateverTheMask)
{
    const mode_t mask = umask(0777);

    EXPECT_EQ(writeAtomically(home / "script", "", 0700), 0);

    umask(mask);
    EXPECT_EQ(home.inventory().at("script").mode, mode_t(S_IFREG | 0700));
}

TEST_F(AtomicFile, ReplacesAFileAndALinkItself)
{
    const FilePath kept = home.file("kept", 10);
    home.link("folder/file", kept);
    EXPECT_EQ(writeAtomically(path, "first"), 0);
    EXPECT_EQ(writeAtomically(path, "second"), 0);

    EXPECT_EQ(contentOf(path), "second");
    EXPECT_EQ(contentOf(kept), QByteArray(10, 'x'));
}

TEST_F(AtomicFile, FailsWithoutATraceWhereItCannotBe)
{
    home.folder("folder/file/inside");

    EXPECT_EQ(writeAtomically(path, "content"), EISDIR);
    EXPECT_NE(writeAtomically(home.file("other") + "/file", "content"), 0);

    EXPECT_THAT(home.inventory(), UnorderedElementsAre(Key("."), Key("folder"), Key("folder/file"),
                                                       Key("folder/file/inside"), Key("other")));
}

TEST_F(AtomicFile, FailsWhereItMayNotBeWritten)
{
    home.file("folder/file", 3);
    chmod(home.path().constData(), 0555);
    chmod((home / "folder").constData(), 0555);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_EQ(writeAtomically(path, "content"), EACCES);
        EXPECT_EQ(writeAtomically(home / "new/file", "content"), EACCES);
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_EQ(contentOf(path), "xxx");
}

} // namespace tidlo
