// Tests our Trash with the desktop's own tool: it must find every item, and put it back.

#include "Probe.h"
#include "Witness.h"
#include "support/InChild.h"
#include "support/OwnMounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tidlo {

using testing::Each;
using testing::IsEmpty;

namespace {

struct Listed
{
    std::string address; ///< The tool's URL of the item.
    std::string path;    ///< The former path according to the tool.
};

/// A desktop session without a screen, in which gio and its services run for the duration of one command.
class DesktopSession final
{
public:
    explicit DesktopSession(FilePath home)
        : home(std::move(home))
    {}

    /// Whether such a session can be started. The Trash is still empty, so this cannot hide an error in it.
    bool isAvailable() const { return run({"gio", "trash", "--list"}).succeeded; }

    std::vector<Listed> list() const
    {
        std::vector<Listed> items;
        std::istringstream output(run({"gio", "trash", "--list"}).output);
        for (std::string line; std::getline(output, line);) {
            const size_t tab = line.find('\t');
            if (line.starts_with("trash:///") && tab != std::string::npos)
                items.push_back({.address = line.substr(0, tab), .path = line.substr(tab + 1)});
        }
        return items;
    }

    bool restore(const std::vector<Listed> &items) const
    {
        std::vector<std::string> command{"gio", "trash", "--restore"};
        for (const Listed &item : items)
            command.push_back(item.address);
        return run(command).succeeded;
    }

private:
    ChildResult run(const std::vector<std::string> &command) const
    {
        return inChild([&] {
            prctl(PR_SET_CHILD_SUBREAPER,
                  1); // Services that the session leaves behind become children of this process.
            const pid_t session = fork();
            if (session == 0)
                become(command);
            int status = 0;
            waitpid(session, &status, 0);
            while (wait(nullptr) > 0) {
            } // They end by themselves after the session.
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        });
    }

    void become(const std::vector<std::string> &command) const
    {
        setenv("HOME", home.constData(), 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        for (const char *name : {"XDG_DATA_HOME", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS", "DISPLAY"})
            unsetenv(name);
        std::vector<char *> arguments{const_cast<char *>("dbus-run-session"), const_cast<char *>("--")};
        for (const std::string &word : command)
            arguments.push_back(const_cast<char *>(word.c_str()));
        arguments.push_back(nullptr);
        execvp(arguments.front(), arguments.data());
        _exit(EXIT_FAILURE);
    }

    FilePath home;
};

const char *const noDesktop = "gio with its Trash service is not there (Debian: libglib2.0-bin, gvfs, dbus), so it was "
                              "not asked about our Trash.";

void expectAllComeBack(const TemporaryHome &home, const DesktopSession &desktop, const std::vector<FilePath> &paths)
{
    const auto before = home.inventory();
    EXPECT_THAT(probe({.paths = paths, .home = home.path()}).lines, Each(std::string("moved")));

    const std::vector<Listed> listed = desktop.list();

    std::set<std::string> listedPaths;
    for (const Listed &item : listed)
        listedPaths.insert(item.path);
    std::set<std::string> expected;
    for (const FilePath &path : paths)
        expected.insert(path.toStdString());
    EXPECT_EQ(listedPaths, expected);
    EXPECT_EQ(listed.size(), expected.size());
    EXPECT_TRUE(desktop.restore(listed));
    EXPECT_THAT(desktop.list(), IsEmpty());
    const auto after = home.inventory();
    for (const auto &[path, entry] : before) {
        ASSERT_TRUE(after.contains(path)) << path;
        EXPECT_EQ(after.at(path).inode, entry.inode) << path;
    }
}

} // namespace

TEST(TrashOnTheDesktop, GioListsAndRestoresWhatWasMoved)
{
    const TemporaryHome home;
    const DesktopSession desktop(home.path());
    if (!desktop.isAvailable())
        GTEST_SKIP() << noDesktop;
    // gio restores other names than these under escaped names, even if gio itself moved the items.
    std::vector<FilePath> paths{home.folder("in/empty folder"), home.link("in/dangling", "nowhere")};
    for (const char *name :
         {"a.txt", "100%", "%41", "-rf", "a=b;c#d&e?f", ".hidden", " spaces ", "[Trash Info]", "x.trashinfo"})
        paths.push_back(home.file(FilePath("in/") + name, 1));
    for (const qsizetype size : {238, 244, 245, 246, 255})
        paths.push_back(home.file("in/" + FilePath(size, 'n'), 1));
    for (const char *number : {"1", "2", "3"}) {
        home.file(FilePath("in/") + number + "/node_modules/a.js", 1);
        paths.push_back(home / "in/" + number + "/node_modules");
    }

    expectAllComeBack(home, desktop, paths);
}

TEST(TrashOnTheDesktop, GioListsAndRestoresWhatWasMovedOnAnotherDisk)
{
    const TemporaryHome home;
    const FilePath disk = home.folder("disk");
    const FilePath image = home.sparseFile("image", 4 << 20);
    const std::string makeDisk = "mkfs.ext4 -q -F '" + image.toStdString() + "' && mount -o loop '" +
                                 image.toStdString() + "' '" + disk.toStdString() + '\'';
    inOwnMounts([&] {
        const DesktopSession desktop(home.path());
        if (geteuid() != 0 || std::system(makeDisk.c_str()) != 0)
            GTEST_SKIP() << "No disk can be made of a file here, so gio was not asked about the Trash of another one.";
        if (!desktop.isAvailable())
            GTEST_SKIP() << noDesktop;
        expectAllComeBack(home, desktop, {home.file("disk/in/a file", 1), home.folder("disk/100%")});
    });
}

} // namespace tidlo
