// Copying, writing and reading files while signals interrupt system calls, or errors end them.

#include "BentCalls.h"
#include "platform/ApplicationCopier.h"
#include "platform/AtomicFile.h"
#include "platform/SmallFile.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

namespace tidlo {

using Call = Bends::Call;

TEST(CopyFaults, AnInterruptedCopyGoesOn)
{
    const Straightener straightener;
    const TemporaryHome home;
    home.file("from/Tidlo.app/Contents/MacOS/Tidlo", 50'000);
    home.link("from/Tidlo.app/Contents/link", "MacOS");
    home.folder("Applications");
    for (const Call call : {Call::open, Call::fstat, Call::sendfile, Call::fchmod, Call::utimensat}) {
        bends.bendEvery({call}, EINTR);
        const auto problem = copyApplication(home / "from/Tidlo.app", home / "Applications/Tidlo.app");
        bends.straighten();
        EXPECT_EQ(problem, std::nullopt) << static_cast<int>(call);
        EXPECT_EQ(home.inventory().at("Applications/Tidlo.app/Contents/MacOS/Tidlo").size, 50'000);
    }
}

TEST(CopyFaults, AnErrorOfAnyCallLeavesTheOldOrTheNewApplicationWhole)
{
    const Straightener straightener;
    const TemporaryHome home;
    const FilePath place = home / "Applications/Tidlo.app";
    home.file("from/Tidlo.app/Contents/MacOS/Tidlo", 50'000);
    home.link("from/Tidlo.app/Contents/link", "MacOS");
    for (const Call call : {Call::open, Call::fstat, Call::sendfile, Call::fchmod, Call::utimensat}) {
        int told = 0;
        for (int allowed = 0, isHit = true; isHit; ++allowed) {
            std::filesystem::remove_all((home / "Applications").toStdString());
            home.file("Applications/Tidlo.app/former", 10);
            bends.bendEvery({call}, EIO);
            bends.allowed = allowed;
            const auto problem = copyApplication(home / "from/Tidlo.app", place);
            isHit = bends.allowed < 0;
            bends.straighten();
            told += problem == QStringLiteral("Input/output error") ? 1 : 0;
            const auto after = home.inventory();
            const bool isOld = after.contains("Applications/Tidlo.app/former");
            const bool isNew = after.contains("Applications/Tidlo.app/Contents/link") &&
                               after.at("Applications/Tidlo.app/Contents/MacOS/Tidlo").size == 50'000;
            EXPECT_TRUE(problem ? isOld != isNew : isNew) << static_cast<int>(call) << ' ' << allowed;
        }
        EXPECT_GT(told, 0) << static_cast<int>(call);
    }
}

TEST(CopyFaults, AnErrorOfAnyCallLeavesTheFormerFile)
{
    const Straightener straightener;
    const TemporaryHome home;
    home.file("file", 10);
    const auto before = home.inventory();
    for (const Call call : {Call::pwrite, Call::fsync, Call::fchmod}) {
        bends.bendEvery({call}, EIO);
        bends.allowed = 0;
        EXPECT_EQ(writeAtomically(home / "file", QByteArray(10'000, 'y')), EIO) << static_cast<int>(call);
        bends.straighten();
        EXPECT_EQ(home.inventory().at("file"), before.at("file"));
        EXPECT_EQ(home.inventory().size(), before.size());
    }
}

TEST(CopyFaults, ASmallFileThatCannotBeReadTellsTheError)
{
    const Straightener straightener;
    const TemporaryHome home;
    home.file("file", 10);
    bends.bendEvery({Call::fstat}, EIO);
    bends.allowed = 0;

    EXPECT_EQ(readSmallFile(home / "file", LinkAtEnd::refused).error(), EIO);
    EXPECT_EQ(readSmallFile("/proc/self/mem", LinkAtEnd::refused).error(), EIO); // Nothing is at address 0.
}

TEST(CopyFaults, AnInterruptedFileIsWrittenWhole)
{
    const Straightener straightener;
    const TemporaryHome home;
    for (const Call call : {Call::pwrite, Call::fsync, Call::fchmod}) {
        bends.bendEvery({call}, EINTR);
        const int problem = writeAtomically(home / "file", QByteArray(10'000, 'x'));
        bends.straighten();
        EXPECT_EQ(problem, 0) << static_cast<int>(call);
        EXPECT_EQ(home.inventory().at("file").size, 10'000);
    }
}

} // namespace tidlo
