// At each system call of a move or a restore, the program is killed, and each error is returned that the call may
// report. Whatever happens, the item is at its place or in the Trash with a complete record, and the reported outcome
// is true.

#include "FastDisk.h"
#include "InstrumentedCalls.h"
#include "Scene.h"
#include "support/OwnMounts.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <set>

#include <sys/wait.h>

namespace tidlo {

namespace {

using Kind = TrashOutcome::Kind;

/// The plausible errors of a call, from the manual and the known behaviour of file systems.
const std::map<std::string, std::vector<int>> errorsOf{
    {"openat", {EACCES, EPERM, EIO, EMFILE, ENFILE, ENOMEM, EINTR, ELOOP, ENOENT, ENOTDIR, ENAMETOOLONG, ESTALE}},
    {"openat2",
     {EACCES, EPERM, EIO, EMFILE, ENFILE, ENOMEM, EINTR, ELOOP, ENOENT, ENOTDIR, EXDEV, EAGAIN, ENOSYS, ENAMETOOLONG}},
    {"create",
     {EACCES, EPERM, EIO, EMFILE, ENFILE, ENOMEM, EINTR, EEXIST, ENOSPC, EDQUOT, EROFS, ENOENT, ENAMETOOLONG, ESTALE}},
    {"mkdirat",
     {EACCES, EPERM, EIO, EINTR, ENOMEM, EEXIST, ENOSPC, EDQUOT, EROFS, ENOENT, EMLINK, ENAMETOOLONG, ESTALE}},
    {"statx", {EACCES, EPERM, EIO, EINTR, ENOMEM, ENOSYS, ESTALE}},
    {"fstatvfs", {EIO, EINTR, ENOSYS, ENOMEM}},
    {"readlinkat", {EACCES, EIO, EINTR, ENOENT, ENOMEM, ENAMETOOLONG}},
    {"read", {EIO, EINTR, ENOMEM}},
    {"pwrite", {EIO, EINTR, ENOSPC, EDQUOT, EFBIG, ENOMEM, EPERM, ESTALE}},
    {"fsync", {EIO, EINTR, ENOSPC, EDQUOT, EROFS, EINVAL}},
    {"close", {EIO, EINTR, ENOSPC, EDQUOT}},
    {"renameat2", {EACCES, EPERM, EBUSY,  EEXIST, EINVAL,    ENOSYS, EOPNOTSUPP, EIO,          EXDEV,  ENOSPC, EDQUOT,
                   ENOMEM, EROFS, ENOENT, EMLINK, ENOTEMPTY, EISDIR, ENOTDIR,    ENAMETOOLONG, ESTALE, EINTR}},
    {"unlinkat", {EACCES, EPERM, EBUSY, EIO, EINTR, EROFS, ENOENT, ENOMEM}},
};

struct Fault
{
    enum class Way {
        once,        ///< The call fails.
        fromThereOn, ///< It fails, and every later one of its kind.
        everything,  ///< It fails, and every later one of any kind.
        afterwards,  ///< It does its work but reports an error, as network file systems may.
    };

    int at = 0; ///< The number of the call.
    Way way = Way::once;
    int error = 0;
};

/// Whether the call changes anything.
bool hasEffect(const Call &call)
{
    const std::set<std::string> effects{"create", "mkdirat", "pwrite", "fsync", "close", "renameat2", "unlinkat"};
    return effects.contains(call.name);
}

/// Counts what was done and found.
struct Tally
{
    int injected = 0;
    int lost = 0;

    void print() const { std::cout << injected << " faults injected, " << lost << " items lost\n"; }
};

long failure(int error)
{
    errno = error;
    return -1;
}

SystemCalls withoutKeepingFromReplacing(SystemCalls calls)
{
    calls.renameat2 = [real = calls.renameat2](int folder, const char *name, int newFolder, const char *newName,
                                               unsigned flags) {
        return flags == 0 ? real(folder, name, newFolder, newName, flags) : static_cast<int>(failure(EINVAL));
    };
    return calls;
}

class Trial final
{
public:
    Trial(Scene scene, const SceneSetup &setup)
        : scene(std::move(scene))
        , isBack(setup.isBack)
        , real(setup.canKeepFromReplacing ? SystemCalls() : withoutKeepingFromReplacing({}))
    {
        this->scene.setUp();
        const TrashOutcome outcome = this->scene.run(instrumented(
            [this](const Call &call, const auto &make) {
                trace.push_back(call);
                return make();
            },
            real));
        EXPECT_EQ(outcome.kind, Kind::moved) << outcome.reason.toStdString();
        EXPECT_TRUE(this->scene.isWhereItGoes());
        EXPECT_TRUE(this->scene.areOthersUnchanged());
        if (!setup.canKeepFromReplacing) // Before that call nothing differs from the other case, which is tested as
                                         // well.
            trace.erase(trace.begin(), std::ranges::find(trace, "renameat2", &Call::name));
    }

    void injectErrors(Tally &tally)
    {
        for (const Call &call : trace) {
            for (const int error : errorsOf.at(call.name)) {
                inject({.at = call.number, .way = Fault::Way::once, .error = error}, call, tally);
                inject({.at = call.number, .way = Fault::Way::fromThereOn, .error = error}, call, tally);
                if (hasEffect(call))
                    inject({.at = call.number, .way = Fault::Way::afterwards, .error = error}, call, tally);
            }
            inject({.at = call.number, .way = Fault::Way::everything, .error = EIO}, call, tally);
        }
    }

    void injectKills(Tally &tally)
    {
        for (const Call &call : trace)
            kill(call, tally);
    }

private:
    void inject(const Fault &fault, const Call &call, Tally &tally)
    {
        SCOPED_TRACE(testing::Message() << "call " << call.number << ' ' << call.name << ' ' << call.path << ", error "
                                        << fault.error << ", way " << static_cast<int>(fault.way));
        scene.setUp();
        const ptrdiff_t openBefore = openDescriptors();
        int calls = 0;
        const TrashOutcome outcome = scene.run(instrumented(
            [&](const Call &now, const auto &make) {
                calls = now.number;
                return answer(fault, call, now, make);
            },
            real));
        ++tally.injected;
        tally.lost += scene.isAtPlace() || scene.isInTrash() ? 0 : 1;
        EXPECT_TRUE(scene.areOthersUnchanged());
        EXPECT_LT(calls, 2'000) << "no endless loop";
        EXPECT_EQ(openDescriptors(), openBefore);
        expectTrue(outcome, fault, call);
        if (fault.error == EINTR && fault.way == Fault::Way::once && call.name != "close") {
            EXPECT_EQ(outcome.kind, Kind::moved) << "an interruption is no failure";
        }
    }

    static long answer(const Fault &fault, const Call &call, const Call &now, const std::function<long()> &make)
    {
        const bool isHere = now.number == fault.at;
        const bool isLater = now.number > fault.at && (fault.way == Fault::Way::everything ||
                                                       (fault.way == Fault::Way::fromThereOn && now.name == call.name));
        if (!isHere && !isLater)
            return make();
        // close() always closes the descriptor, whatever it returns.
        if (fault.way == Fault::Way::afterwards || now.name == "close") {
            const long result = make();
            if (now.name == "openat" || now.name == "create")
                ::close(static_cast<int>(result));
        }
        return failure(fault.error);
    }

    void expectTrue(const TrashOutcome &outcome, const Fault &fault, const Call &call) const
    {
        const bool told = outcome.kind == Kind::moved ? scene.isWhereItGoes() : scene.isWhereItWas();
        EXPECT_TRUE(told) << static_cast<int>(outcome.kind) << ' ' << outcome.reason.toStdString();
        if (outcome.kind == Kind::gone) { // Only the system itself can have reported that.
            EXPECT_TRUE((FilePath(call.path.c_str()).startsWith("item") || scene.item().startsWith(call.path)) &&
                        (fault.error == ENOENT || fault.error == ENOTDIR));
        }
        EXPECT_EQ(outcome.reason.isEmpty(), outcome.kind == Kind::moved || outcome.kind == Kind::gone);
        EXPECT_EQ(outcome.error != 0, outcome.kind == Kind::failed);
        // What cannot be removed stays, and so does what cannot be proved to be ours.
        const bool mayLeaveLitter = call.name == "unlinkat" || fault.way == Fault::Way::everything ||
                                    fault.way == Fault::Way::afterwards ||
                                    (call.name == "statx" && (isBack || fault.way == Fault::Way::fromThereOn));
        EXPECT_TRUE((outcome.kind == Kind::moved && !isBack) || mayLeaveLitter || !scene.hasLitter())
            << "something is left of the attempt";
    }

    /// Kills the program after a call, which is the same as before the next one.
    void kill(const Call &call, Tally &tally)
    {
        SCOPED_TRACE(testing::Message() << "killed after call " << call.number << ' ' << call.name << ' ' << call.path);
        scene.setUp();
        std::fflush(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            scene.run(instrumented(
                [&](const Call &now, const auto &make) {
                    const long result = make();
                    if (now.number == call.number)
                        raise(SIGKILL);
                    return result;
                },
                real));
            _exit(EXIT_SUCCESS);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        ++tally.injected;
        tally.lost += scene.isAtPlace() != scene.isInTrash() ? 0 : 1;
        EXPECT_TRUE(scene.areOthersUnchanged());
    }

    static ptrdiff_t openDescriptors()
    {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    }

    Scene scene;
    bool isBack;
    SystemCalls real;
    std::vector<Call> trace;
};

/// All combinations of situations before a move.
std::vector<SceneSetup> allSetups()
{
    std::vector<SceneSetup> setups;
    for (const bool isFolder : {false, true}) {
        for (const bool isNameTaken : {false, true}) {
            for (const bool canKeepFromReplacing : {false, true})
                setups.push_back({isFolder, isNameTaken, canKeepFromReplacing});
        }
    }
    return setups;
}

/// All situations before a restore.
std::vector<SceneSetup> allSetupsOfRestores()
{
    std::vector<SceneSetup> setups;
    for (const bool isFolder : {false, true}) {
        for (const bool canKeepFromReplacing : {false, true}) {
            for (const bool isParentMissing : {false, true})
                setups.push_back({.isFolder = isFolder,
                                  .isNameTaken = isFolder,
                                  .canKeepFromReplacing = canKeepFromReplacing,
                                  .isBack = true,
                                  .isParentMissing = isParentMissing});
        }
    }
    return setups;
}

} // namespace

TEST(TrashFaults, NoErrorOfAnyCallLosesAnything)
{
    const TemporaryHome home(fastDisk());
    Tally tally;

    for (const SceneSetup &setup : allSetups())
        Trial(Scene(home.path(), setup), setup).injectErrors(tally);

    tally.print();
    EXPECT_GT(tally.injected, 1'000);
    EXPECT_EQ(tally.lost, 0);
}

TEST(TrashFaults, NoKillAtAnyCallLosesAnything)
{
    const TemporaryHome home(fastDisk());
    Tally tally;

    for (const SceneSetup &setup : allSetups())
        Trial(Scene(home.path(), setup), setup).injectKills(tally);

    tally.print();
    EXPECT_GT(tally.injected, 200);
    EXPECT_EQ(tally.lost, 0);
}

TEST(TrashFaults, NoErrorOfAnyCallOfARestoreLosesAnything)
{
    const TemporaryHome home(fastDisk());
    Tally tally;

    for (const SceneSetup &setup : allSetupsOfRestores())
        Trial(Scene(home.path(), setup), setup).injectErrors(tally);

    tally.print();
    EXPECT_GT(tally.injected, 1'000);
    EXPECT_EQ(tally.lost, 0);
}

TEST(TrashFaults, NoKillAtAnyCallOfARestoreLosesAnything)
{
    const TemporaryHome home(fastDisk());
    Tally tally;

    for (const SceneSetup &setup : allSetupsOfRestores())
        Trial(Scene(home.path(), setup), setup).injectKills(tally);

    tally.print();
    EXPECT_GT(tally.injected, 100);
    EXPECT_EQ(tally.lost, 0);
}

TEST(TrashFaults, NothingIsLostAtAnyCallOnAnotherMount)
{
    const TemporaryHome home(fastDisk());
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        Tally tally;
        for (const SceneSetup &setup : {SceneSetup{}, SceneSetup{.isFolder = true}, SceneSetup{.isBack = true},
                                        SceneSetup{.isFolder = true, .isBack = true, .isParentMissing = true}}) {
            Trial trial(Scene(stick, setup, home.path()), setup);
            trial.injectErrors(tally);
            trial.injectKills(tally);
        }
        tally.print();
        EXPECT_EQ(tally.lost, 0);
    });
}

} // namespace tidlo
