// Copying and writing files while signals interrupt system calls.

#include "BentCalls.h"
#include "platform/ApplicationCopier.h"
#include "platform/AtomicFile.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <cerrno>

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
