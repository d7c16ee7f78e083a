// Systems that support less than usual.

#include "FastDisk.h"
#include "InstrumentedCalls.h"
#include "Scene.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace tidlo {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

namespace {

using Kind = TrashOutcome::Kind;

/// A scene with an item of one kind, and the calls of a system that a test restricts.
class TrashSystems : public testing::TestWithParam<bool>
{
protected:
    TrashSystems() { scene.setUp(); }

    void expectMoved()
    {
        const TrashOutcome outcome = scene.move(calls);
        EXPECT_EQ(outcome.kind, Kind::moved) << outcome.reason.toStdString();
        EXPECT_TRUE(scene.isInTrash());
        EXPECT_TRUE(scene.areOthersUnchanged());
        EXPECT_EQ(scene.addedToTrash(), 1U);
    }

    void expectFailed(int error)
    {
        const TrashOutcome outcome = scene.move(calls);
        EXPECT_EQ(outcome.kind, Kind::failed);
        EXPECT_EQ(outcome.error, error) << outcome.reason.toStdString();
        EXPECT_TRUE(scene.isAtPlace());
        EXPECT_TRUE(scene.areOthersUnchanged());
        EXPECT_EQ(scene.addedToTrash(), 0U);
    }

    void forbidRenames()
    {
        calls.renameat2 = [](int, const char *, int, const char *, unsigned) {
            ADD_FAILURE() << "it is renamed";
            errno = EIO;
            return -1;
        };
    }

    const TemporaryHome home{fastDisk()};
    Scene scene{home.path(), {.isFolder = GetParam(), .isNameTaken = true}};
    SystemCalls calls;
    const SystemCalls real;
};

INSTANTIATE_TEST_SUITE_P(FileAndFolder, TrashSystems, testing::Bool(),
                         [](const auto &kind) { return kind.param ? "Folder" : "File"; });

} // namespace

TEST_P(TrashSystems, TheRecordIsWholeAndOnTheDiskBeforeTheItemIsRenamed)
{
    std::vector<std::string> made;
    calls = instrumented([&](const Call &call, const auto &real) {
        if (call.name != "statx")
            made.push_back(call.name + ' ' + call.path);
        return real();
    });

    expectMoved();

    const auto record = std::ranges::find(made, "create item 3.trashinfo");
    EXPECT_THAT(std::vector(record, made.end()),
                ElementsAre("create item 3.trashinfo", "pwrite ", "fsync ", "close ", "renameat2 item"));
}

TEST_P(TrashSystems, TellsWhereTheItemIsAndWasAndWhichItIs)
{
    const auto identity = [](const FilePath &path) {
        struct stat status
        {};
        EXPECT_EQ(lstat(path.constData(), &status), 0);
        return ItemIdentity{.device = status.st_dev, .inode = status.st_ino};
    };
    const ItemIdentity before = identity(scene.item());

    const TrashOutcome outcome = scene.move(calls);

    EXPECT_EQ(outcome.trashed,
              (TrashedItem{.trash = scene.trash(), .name = "item 3", .origin = scene.item(), .identity = before}));
    EXPECT_EQ(identity(scene.trash() + "/files/item 3"), before);
}

TEST_P(TrashSystems, ARecordIsWholeThatIsWrittenByteByByte)
{
    calls.pwrite = [](int file, const void *bytes, size_t, off_t at) { return ::pwrite(file, bytes, 1, at); };

    expectMoved();
}

TEST_P(TrashSystems, ADiskThatTakesNothingAndTellsNoErrorKeepsTheItem)
{
    calls.pwrite = [](int, const void *, size_t, off_t) { return ssize_t(0); };

    expectFailed(EIO);
}

TEST_P(TrashSystems, ARecordThatMayNotReachTheDiskKeepsTheItem)
{
    calls.fsync = [](int) {
        errno = EIO;
        return -1;
    };
    forbidRenames();

    expectFailed(EIO);
}

TEST_P(TrashSystems, ARecordWhoseFileCannotBeClosedKeepsTheItem)
{
    calls.close = [](int file) { // A network file system may report a failed write only now.
        ::close(file);
        errno = EDQUOT;
        return -1;
    };
    forbidRenames();

    expectFailed(EDQUOT);
}

TEST_P(TrashSystems, MountsThatCannotBeReadToTheirEndKeepTheItem)
{
    int reads = 0;
    calls.read = [&reads](int file, void *bytes, size_t) {
        errno = EIO;
        return ++reads == 1 ? ::read(file, bytes, 7) : ssize_t(-1);
    };
    forbidRenames();

    expectFailed(EIO);
}

TEST_P(TrashSystems, MountsAreReadWholeThoughTheyComeInPieces)
{
    calls.read = [](int file, void *bytes, size_t size) { return ::read(file, bytes, std::min<size_t>(size, 7)); };

    expectMoved();
}

TEST_P(TrashSystems, AKernelWhoseStatxDoesNotTellTheMountIsAskedElsewhere)
{
    calls.statx = [this](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        const int result = real.statx(folder, name, flags, wanted, status);
        status->stx_mask &= ~STATX_MNT_ID;
        status->stx_mnt_id = 0;
        return result;
    };

    expectMoved();
}

TEST_P(TrashSystems, AKernelThatDoesNotTellTheMountAtAllKeepsTheItem)
{
    calls.statx = [this](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        const int result = real.statx(folder, name, flags, wanted, status);
        status->stx_mask &= ~STATX_MNT_ID;
        return result;
    };
    calls.read = [](int, void *, size_t) { return ssize_t(0); };

    expectFailed(ENOTSUP);
}

TEST_P(TrashSystems, AProcFolderThatIsNotThereKeepsTheItem)
{
    calls.readlinkat = [](int, const char *, char *, size_t) {
        errno = ENOENT;
        return ssize_t(-1);
    };

    expectFailed(ESTALE);
}

TEST_P(TrashSystems, AFileSystemThatCannotBeKeptFromReplacingReplacesNothing)
{
    calls.renameat2 = [this](int folder, const char *name, int newFolder, const char *newName, unsigned flags) {
        errno = EINVAL;
        return flags != 0 ? -1 : real.renameat2(folder, name, newFolder, newName, flags);
    };

    expectMoved();
}

TEST_P(TrashSystems, AnyErrorThatTellsSoIsUnderstood)
{
    for (const int told : {EINVAL, ENOSYS, EOPNOTSUPP}) {
        calls.renameat2 = [this, told](int folder, const char *name, int newFolder, const char *newName,
                                       unsigned flags) {
            errno = told;
            return flags != 0 ? -1 : real.renameat2(folder, name, newFolder, newName, flags);
        };
        const FilePath path = home.file("in/" + FilePath::number(told));
        EXPECT_EQ(XdgTrash(home.path(), home / ".local/share", calls).move(path, 0).kind, Kind::moved) << told;
    }
}

TEST_P(TrashSystems, ANameThatSomebodyTakesAtTheLastMomentIsNotReplaced)
{
    FilePath intruder;
    calls.renameat2 = [&](int folder, const char *name, int newFolder, const char *newName, unsigned flags) {
        if (intruder.isEmpty() && mkdirat(newFolder, newName, 0700) == 0)
            intruder = scene.trash() + "/files/" + newName;
        return real.renameat2(folder, name, newFolder, newName, flags);
    };

    EXPECT_EQ(scene.move(calls).kind, Kind::moved);

    EXPECT_TRUE(scene.isInTrash());
    EXPECT_EQ(rmdir(intruder.constData()), 0) << "it is still there, and still empty";
}

TEST_P(TrashSystems, AnEmptyThingThatHoldsTheNameIsNotMistakenForAnother)
{
    FilePath intruder;
    calls.renameat2 = [](int, const char *, int, const char *, unsigned) {
        errno = EINVAL;
        return -1;
    };
    // As if another program, which ignores records, replaced the new empty item.
    calls.statx = [&](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        const FilePath place = scene.trash() + "/files/" + name;
        if (intruder.isEmpty() && FilePath(name) == "item 3" &&
            rename(place.constData(), (place + "x").constData()) == 0) {
            intruder = place;
            EXPECT_EQ(mkdir(place.constData(), 0700), 0);
        }
        return real.statx(folder, name, flags, wanted, status);
    };

    const TrashOutcome outcome = scene.move(calls);

    EXPECT_EQ(outcome.kind, Kind::failed);
    EXPECT_TRUE(scene.isAtPlace());
    EXPECT_EQ(rmdir(intruder.constData()), 0) << "it is still there";
}

TEST_P(TrashSystems, AThingOfTheSameKindThatTookTheNameIsNotReplaced)
{
    FilePath intruder;
    calls.renameat2 = [this](int folder, const char *name, int newFolder, const char *newName, unsigned flags) {
        errno = EINVAL;
        return flags != 0 ? -1 : real.renameat2(folder, name, newFolder, newName, flags);
    };
    calls.statx = [&](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        const FilePath place = scene.trash() + "/files/" + name;
        if (intruder.isEmpty() && FilePath(name) == "item 3" &&
            rename(place.constData(), (place + "x").constData()) == 0) {
            intruder = GetParam() ? home.folder(".local/share/Trash/files/item 3")
                                  : home.file(".local/share/Trash/files/item 3", 5);
        }
        return real.statx(folder, name, flags, wanted, status);
    };

    EXPECT_NE(scene.move(calls).kind, Kind::moved);

    EXPECT_TRUE(scene.isAtPlace());
    EXPECT_TRUE(scene.areOthersUnchanged());
    EXPECT_EQ(GetParam() ? rmdir(intruder.constData()) : truncate(intruder.constData(), 0), 0) << "it is still there";
}

TEST_P(TrashSystems, NamesThatAreNeverFreeEndTheMove)
{
    calls.renameat2 = [](int, const char *, int, const char *, unsigned) {
        errno = EEXIST;
        return -1;
    };

    expectFailed(EEXIST);
}

TEST_P(TrashSystems, AFileSystemOfShorterNamesGetsShorterNames)
{
    calls.fstatvfs = [](int, struct statvfs *status) {
        status->f_namemax = 20;
        return 0;
    };
    const FilePath path = scene.parent() + "/a name that is too long";
    ASSERT_EQ(rename(scene.item().constData(), path.constData()), 0);

    EXPECT_EQ(XdgTrash(home.path(), home / ".local/share", calls).move(path, 0).kind, Kind::moved);

    EXPECT_THAT(decodeTrash(scene.trash()).items,
                testing::Contains(
                    testing::AllOf(Field(&DecodedItem::name, "a name tha"), Field(&DecodedItem::originalPath, path))));
}

TEST_P(TrashSystems, AFileSystemThatDoesNotTellItsLongestNameIsTakenToBeUsual)
{
    calls.fstatvfs = [](int, struct statvfs *) {
        errno = ENOSYS;
        return -1;
    };

    expectMoved();
}

TEST_P(TrashSystems, AMoveThatSucceedsDespiteAReportedErrorCountsAsMoved)
{
    calls.renameat2 = [this](int folder, const char *name, int newFolder, const char *newName, unsigned flags) {
        const int result = real.renameat2(folder, name, newFolder, newName, flags);
        errno = result == 0 ? ENOENT : errno; // As if a network file system repeated the request.
        return -1;
    };

    expectMoved();
}

TEST_P(TrashSystems, AMoveThatSucceedsDespiteAReportedErrorCountsAsMovedEvenIfItsPlaceIsTakenAgain)
{
    calls.renameat2 = [this](int folder, const char *name, int newFolder, const char *newName, unsigned flags) {
        if (real.renameat2(folder, name, newFolder, newName, flags) == 0) {
            home.file("in/item", 1);
            errno = ENOENT;
        }
        return -1;
    };

    expectMoved();
    EXPECT_EQ(access(scene.item().constData(), F_OK), 0) << "what took its place stays there";
}

TEST_P(TrashSystems, WhatTheSystemDoesNotTellOfIsNotTakenToBeGone)
{
    bool isRenamed = false;
    calls.renameat2 = [&isRenamed](int, const char *, int, const char *, unsigned) {
        isRenamed = true;
        errno = ENOENT;
        return -1;
    };
    calls.statx = [this, &isRenamed](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        errno = EIO;
        return isRenamed && *name != '\0' ? -1 : real.statx(folder, name, flags, wanted, status);
    };

    expectFailed(ENOENT);
}

TEST(TrashOfLinks, ALinkIsKeptThatMayLeadToTheHome)
{
    const TemporaryHome home;
    home.folder("disk/u");
    home.link("way", "disk");
    const FilePath link = home.link("other", "disk");
    const FilePath own = home / "way/u";
    SystemCalls calls;
    calls.statx = [&, real = calls.statx](int folder, const char *name, int flags, unsigned wanted,
                                          struct statx *status) {
        errno = EIO;
        return name == home / "way" ? -1 : real(folder, name, flags, wanted, status);
    };

    EXPECT_EQ(XdgTrash(own, own + "/.local/share", calls).move(link, 0).kind, Kind::refused);
    EXPECT_EQ(access(link.constData(), F_OK), 0);

    EXPECT_EQ(XdgTrash(own, own + "/.local/share").move(link, 0).kind, Kind::moved) << "where the system tells of it";
}

} // namespace tidlo
