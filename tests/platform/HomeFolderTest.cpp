#include "platform/HomeFolder.h"

#include "platform/LiveFileManager.h"
#include "platform/Paths.h"
#include "support/InChild.h"
#include "support/PrintQt.h"

#include <QDir>

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>

namespace tidlo {

namespace {

/// The result of \a work in a process whose $HOME is \a home, or unset.
std::string inHome(const char *home, const std::function<FilePath()> &work)
{
    const ChildResult result = inChild([&] {
        if (home == nullptr)
            unsetenv("HOME");
        else
            setenv("HOME", home, 1);
        for (const char *name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            unsetenv(name);
        std::fputs(work().constData(), stdout);
        return true;
    });
    EXPECT_TRUE(result.succeeded);
    return result.output;
}

std::string homeOfDatabase()
{
    return getpwuid(getuid())->pw_dir;
}

/// A user database whose entry needs \a needed bytes.
template <size_t needed>
int largeDatabase(uid_t, passwd *entry, char *texts, size_t size, passwd **found)
{
    *found = nullptr;
    if (size < needed)
        return ERANGE;
    entry->pw_dir = std::strcpy(texts, "/far/away");
    *found = entry;
    return 0;
}

int interruptedDatabase(uid_t user, passwd *entry, char *texts, size_t size, passwd **found)
{
    static int calls = 0;
    return ++calls == 1 ? EINTR : largeDatabase<1>(user, entry, texts, size, found);
}

int emptyDatabase(uid_t, passwd *, char *, size_t, passwd **found)
{
    *found = nullptr;
    return 0;
}

int brokenDatabase(uid_t, passwd *, char *, size_t, passwd **found)
{
    *found = nullptr;
    return EIO;
}

} // namespace

TEST(HomeFolder, IsWhatTheEnvironmentSaysWithoutSlashesAtItsEnd)
{
    for (const auto &[home, expected] : std::map<const char *, std::string>{
             {"/home/me", "/home/me"}, {"/home/me/", "/home/me"}, {"/home/me///", "/home/me"}, {"/", "/"}, {"//", "/"}})
        EXPECT_EQ(inHome(home, homeFolder), expected) << home;
}

TEST(HomeFolder, IsWhatTheUserDatabaseSaysWhereTheEnvironmentSaysNothingAbsolute)
{
    for (const char *home : {static_cast<const char *>(nullptr), "", "here", "./here", "~", "~/me"})
        EXPECT_EQ(inHome(home, homeFolder), homeOfDatabase()) << (home == nullptr ? "none" : home);
}

TEST(HomeFolder, OfTheDatabaseIsFoundHoweverLongItsEntryUpToALimit)
{
    EXPECT_EQ(homeInDatabase(0, largeDatabase<1>), "/far/away");
    EXPECT_EQ(homeInDatabase(0, largeDatabase<100'000>), "/far/away");
    EXPECT_EQ(homeInDatabase(0, largeDatabase<1 << 20>), "/far/away");
    EXPECT_EQ(homeInDatabase(0, largeDatabase<(1 << 20) + 1>), "");
    EXPECT_EQ(homeInDatabase(0, interruptedDatabase), "/far/away");
    EXPECT_EQ(homeInDatabase(0, emptyDatabase), "");
    EXPECT_EQ(homeInDatabase(0, brokenDatabase), "");
}

TEST(HomeFolder, OnceSettledIsWhatLibrariesSeeAsWell)
{
    const auto told = [] {
        const auto ignored = settleHome();
        const FilePath home = LiveFileManager().homeDirectoryForCurrentUser();
        return QFile::encodeName(QDir::homePath()) + ' ' + qgetenv("HOME") + ' ' + home + ' ' + ignored.value_or("-");
    };
    const std::string known = homeOfDatabase();
    EXPECT_EQ(inHome("/home/me/", told), "/home/me /home/me /home/me -");
    EXPECT_EQ(inHome("here", told), known + ' ' + known + ' ' + known + " here");
    EXPECT_EQ(inHome(nullptr, told), known + ' ' + known + ' ' + known + " -");
}

TEST(HomeFolder, IsAskedForOnceByAFileManager)
{
    const std::string home = inHome("/home/me", [] {
        const LiveFileManager files;
        setenv("HOME", "/elsewhere", 1);
        return files.homeDirectoryForCurrentUser();
    });
    EXPECT_EQ(home, "/home/me");
}

TEST(HomeFolder, JoinsNamesWithoutADoubledSlash)
{
    const auto itemInIt = [] { return joined(homeFolder(), "a"); };
    EXPECT_EQ(inHome("/", itemInIt), "/a");
    EXPECT_EQ(inHome("/home/me/", itemInIt), "/home/me/a");
}

} // namespace tidlo
