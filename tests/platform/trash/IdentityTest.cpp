#include "platform/Descriptor.h"
#include "platform/linux/OpenFolder.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>

namespace tidlo {

namespace {

class IdentityTest : public testing::Test
{
protected:
    Identity identity(const FilePath &path) const { return *identityAt(calls, held.get(), AT_FDCWD, path.constData()); }
    int errorOf(const FilePath &path) const
    {
        return identityAt(calls, held.get(), AT_FDCWD, path.constData()).error();
    }

    /// Makes the system report something else for every path.
    void changeAnswer(const std::function<int(struct statx *)> &change)
    {
        calls.statx = [real = calls.statx, change](int folder, const char *name, int flags, unsigned wanted,
                                                   struct statx *status) {
            const int result = real(folder, name, flags, wanted, status);
            return *name == '\0' ? result : change(status);
        };
    }

    const TemporaryHome home;
    const FilePath file = home.file("file");
    const Descriptor held{open(file.constData(), O_PATH | O_CLOEXEC)};
    SystemCalls calls;
};

} // namespace

TEST_F(IdentityTest, IsThatOfTheThingAndNotOfItsName)
{
    EXPECT_EQ(identity(file), Identity::same);
    EXPECT_EQ(identity(home.hardLink("hard", file)), Identity::same);
    EXPECT_EQ(identity(home.link("link", file)), Identity::different);
    EXPECT_EQ(identity(home.file("other")), Identity::different);
    EXPECT_EQ(identity(home / "nothing"), Identity::absent);
}

TEST_F(IdentityTest, IsAnotherOnAnotherFileSystemEvenIfItsNumberIsTheSame)
{
    const SystemCalls real = calls;
    changeAnswer([](struct statx *status) {
        ++status->stx_dev_minor;
        return 0;
    });
    EXPECT_EQ(identity(file), Identity::different);

    calls = real;
    changeAnswer([](struct statx *status) {
        ++status->stx_dev_major;
        return 0;
    });
    EXPECT_EQ(identity(file), Identity::different);
}

TEST_F(IdentityTest, IsUnknownAfterAnyErrorButThatNothingIsThere)
{
    const SystemCalls real = calls;
    for (const int error : {EIO, EACCES, ENOTDIR, ELOOP, ESTALE, ENOMEM}) {
        calls = real;
        changeAnswer([error](struct statx *) {
            errno = error;
            return -1;
        });
        EXPECT_EQ(errorOf(file), error);
    }
}

TEST_F(IdentityTest, IsUnknownWhereTheSystemDoesNotTellOfWhatIsHeld)
{
    calls.statx = [real = calls.statx](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        errno = ENOENT;
        return *name == '\0' ? -1 : real(folder, name, flags, wanted, status);
    };
    EXPECT_EQ(errorOf(file), ENOENT);
}

} // namespace tidlo
