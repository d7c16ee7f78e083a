#include "platform/ApplicationCopier.h"

#include "platform/Workshop.h"
#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <map>

#include <unistd.h>

namespace tidlo {

using testing::Key;
using testing::UnorderedElementsAre;

namespace {

using namespace std::chrono_literals;

std::optional<QString> because(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

FilePath leadsTo(const FilePath &link)
{
    std::array<char, 4096> target{};
    EXPECT_GT(readlink(link.constData(), target.data(), target.size()), 0);
    return target.data();
}

class ApplicationCopier : public testing::Test
{
protected:
    ApplicationCopier()
    {
        home.file("from/Tidlo.app/Contents/MacOS/Tidlo", 5'000);
        home.file("from/Tidlo.app/Contents/Resources/\xff \n.png", 0);
        home.link("from/Tidlo.app/Contents/Current", "MacOS/Tidlo");
        home.link("from/Tidlo.app/Contents/Dangling", "/nowhere/at all");
        chmod((source + "/Contents/MacOS/Tidlo").constData(), 0751);
        chmod((source + "/Contents/Resources").constData(), 0555);
        const FileTime past{100'000s + 123'456'789ns};
        for (const char *item : {"/Contents/MacOS/Tidlo", "/Contents/Current", "/Contents/Resources", ""})
            home.setModified(FilePath("from/Tidlo.app") + item, past);
        home.folder("Applications");
        before = inventoryOf("from/");
    }

    ~ApplicationCopier() override
    {
        chmod((source + "/Contents/Resources").constData(), 0755);
        chmod((destination + "/Contents/Resources").constData(), 0755);
    }

    /// Whatever happened, the running bundle must be unchanged.
    void TearDown() override { EXPECT_EQ(inventoryOf("from/"), before); }

    /// All properties of the entries except the access times.
    std::map<std::string, TemporaryHome::Entry> inventoryOf(const std::string &beginning) const
    {
        std::map<std::string, TemporaryHome::Entry> entries;
        for (auto [name, entry] : home.inventory()) {
            entry.accessed = {};
            if (name.starts_with(beginning))
                entries.emplace(name.substr(beginning.size()), entry);
        }
        return entries;
    }

    void expectWholeCopy() const
    {
        const auto copy = inventoryOf("Applications/");
        const auto original = inventoryOf("from/");
        ASSERT_EQ(copy.size(), original.size());
        for (const auto &[name, entry] : original) {
            ASSERT_TRUE(copy.contains(name)) << name;
            EXPECT_EQ(copy.at(name).mode, entry.mode) << name;
            EXPECT_EQ(copy.at(name).size, entry.size) << name;
            EXPECT_EQ(copy.at(name).modified, entry.modified) << name;
        }
        EXPECT_EQ(leadsTo(destination + "/Contents/Current"), "MacOS/Tidlo");
        EXPECT_EQ(leadsTo(destination + "/Contents/Dangling"), "/nowhere/at all");
    }

    TemporaryHome home;
    const FilePath source = home / "from/Tidlo.app";
    const FilePath destination = home / "Applications/Tidlo.app";
    std::map<std::string, TemporaryHome::Entry> before;
};

} // namespace

TEST_F(ApplicationCopier, KeepsPermissionsLinksAndTimes)
{
    EXPECT_EQ(copyApplication(source, destination), std::nullopt);

    expectWholeCopy();
}

TEST_F(ApplicationCopier, CopiesALoneExecutable)
{
    EXPECT_EQ(copyApplication(source + "/Contents/MacOS/Tidlo", destination), std::nullopt);

    const auto copy = inventoryOf("Applications/");
    EXPECT_THAT(copy, UnorderedElementsAre(Key("Tidlo.app")));
    EXPECT_EQ(copy.at("Tidlo.app").mode, mode_t(S_IFREG | 0751));
}

TEST_F(ApplicationCopier, ReplacesWhatWasThereWhateverItWas)
{
    home.file("Applications/Tidlo.app/Contents/old");
    EXPECT_EQ(copyApplication(source, destination), std::nullopt);
    expectWholeCopy();

    chmod((destination + "/Contents/Resources").constData(), 0755);
    ASSERT_EQ(copyApplication(source, destination), std::nullopt);
    expectWholeCopy();
}

TEST_F(ApplicationCopier, ReplacesAFileOrALinkAndLeavesAloneWhereItLed)
{
    home.file("Applications/Tidlo.app");
    EXPECT_EQ(copyApplication(source, destination), std::nullopt);
    expectWholeCopy();
    chmod((destination + "/Contents/Resources").constData(), 0755);

    home.file("elsewhere/kept");
    for (const FilePath &target : {home / "elsewhere", FilePath("/nowhere"), source}) {
        ASSERT_EQ(std::system(("rm -rf '" + destination + "'").constData()), 0);
        home.link("Applications/Tidlo.app", target);

        EXPECT_EQ(copyApplication(source, destination), std::nullopt);

        expectWholeCopy();
        chmod((destination + "/Contents/Resources").constData(), 0755);
    }
    EXPECT_EQ(access((home / "elsewhere/kept").constData(), F_OK), 0);
}

TEST_F(ApplicationCopier, RefusesTheSourceItself)
{
    EXPECT_EQ(copyApplication(source, source), because(EINVAL));

    home.link("other name", home / "from");
    EXPECT_EQ(copyApplication(source, home / "other name/Tidlo.app"), because(EINVAL));
    EXPECT_EQ(copyApplication(home / "other name/Tidlo.app", source), because(EINVAL));
    EXPECT_EQ(copyApplication(source, home / "from/./../from/Tidlo.app"), because(EINVAL));
}

TEST_F(ApplicationCopier, RefusesWhatLiesInTheSource)
{
    for (const char *inside : {"Tidlo.app", "Contents/Tidlo.app", "Contents/MacOS/Tidlo", "Contents/Current"})
        EXPECT_EQ(copyApplication(source, source + '/' + inside), because(EINVAL)) << inside;

    home.link("other name", source + "/Contents");
    EXPECT_EQ(copyApplication(source, home / "other name/Tidlo.app"), because(EINVAL));
}

TEST_F(ApplicationCopier, RefusesWhatHoldsTheSource)
{
    EXPECT_EQ(copyApplication(source, home / "from"), because(EINVAL));
    EXPECT_EQ(copyApplication(source + "/Contents/MacOS/Tidlo", source), because(EINVAL));
}

TEST_F(ApplicationCopier, RemovesNothingWhenTheSourceHasVanished)
{
    home.file("Applications/Tidlo.app/old");

    EXPECT_EQ(copyApplication(home / "missing", destination), because(ENOENT));

    EXPECT_THAT(inventoryOf("Applications/"), UnorderedElementsAre(Key("Tidlo.app"), Key("Tidlo.app/old")));
}

TEST_F(ApplicationCopier, NeedsAFolderToCopyTo)
{
    EXPECT_EQ(copyApplication(source, home / "missing/Tidlo.app"), because(ENOENT));
    EXPECT_EQ(copyApplication(source, source + "/Contents/MacOS/Tidlo/Tidlo.app"), because(ENOTDIR));
}

TEST_F(ApplicationCopier, NeedsRoomInTheNameForThatOfItsWorkshop)
{
    const FilePath name(250, 'n');
    home.file("Applications/" + name + "/old");

    EXPECT_EQ(copyApplication(source, home / ("Applications/" + name)), because(ENAMETOOLONG));

    EXPECT_EQ(inventoryOf("Applications/").size(), 2);
}

TEST_F(ApplicationCopier, LeavesWhatWasThereWholeWhenTheFolderMayNotBeWritten)
{
    home.file("Applications/Tidlo.app/old");
    chmod(home.path().constData(), 0755);
    chmod((home / "Applications/Tidlo.app").constData(), 0777);
    chmod((home / "Applications").constData(), 0555);

    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_EQ(copyApplication(source, destination), because(EACCES));
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(inventoryOf("Applications/"), UnorderedElementsAre(Key("Tidlo.app"), Key("Tidlo.app/old")));
}

TEST_F(ApplicationCopier, FailsWhenWhatIsThereCannotBeRemoved)
{
    home.file("Applications/Tidlo.app/Contents/old");
    chmod(home.path().constData(), 0755);
    chmod((source + "/Contents/MacOS/Tidlo").constData(), 0755); // It can be read.
    before = inventoryOf("from/");
    chmod((home / "Applications").constData(), 0777);
    chmod((destination + "/Contents").constData(), 0555);

    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_EQ(copyApplication(source, destination), because(EACCES));
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_TRUE(inventoryOf("Applications/").contains("Tidlo.app/Contents/old"));
}

TEST_F(ApplicationCopier, LeavesNothingWhenAPartCannotBeRead)
{
    chmod(home.path().constData(), 0755);
    chmod((home / "Applications").constData(), 0777);
    chmod((source + "/Contents/MacOS/Tidlo").constData(), 0);
    before = inventoryOf("from/");

    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_EQ(copyApplication(source, destination), because(EACCES));
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_TRUE(inventoryOf("Applications/").empty());
}

TEST_F(ApplicationCopier, LeavesWhatWasThereWholeWhenASubfolderOfItMayNotBeEmptied)
{
    home.file("Applications/Tidlo.app/Contents/MacOS/old");
    chmod(home.path().constData(), 0755);
    chmod((source + "/Contents/MacOS/Tidlo").constData(), 0755); // It can be read.
    before = inventoryOf("from/");
    chmod((home / "Applications").constData(), 0777);
    chmod(destination.constData(), 0777);
    chmod((destination + "/Contents").constData(), 0777);
    chmod((destination + "/Contents/MacOS").constData(), 0555);

    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_EQ(copyApplication(source, destination), because(EACCES));
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_THAT(inventoryOf("Applications/"),
                UnorderedElementsAre(Key("Tidlo.app"), Key("Tidlo.app/Contents"), Key("Tidlo.app/Contents/MacOS"),
                                     Key("Tidlo.app/Contents/MacOS/old")));
}

TEST_F(ApplicationCopier, LeavesWhatWasThereWholeWhenAPartCannotBeRead)
{
    home.file("Applications/Tidlo.app/old");
    const auto former = inventoryOf("Applications/");
    ASSERT_EQ(mkfifo((source + "/Contents/pipe").constData(), 0600), 0);
    before = inventoryOf("from/");

    EXPECT_NE(copyApplication(source, destination), std::nullopt);

    EXPECT_EQ(inventoryOf("Applications/"), former);
}

TEST_F(ApplicationCopier, CopiesNothingThatIsNeitherFolderNorFileNorLink)
{
    ASSERT_EQ(mkfifo((source + "/Contents/pipe").constData(), 0600), 0);
    before = inventoryOf("from/");

    EXPECT_NE(copyApplication(source, destination), std::nullopt);

    EXPECT_TRUE(inventoryOf("Applications/").empty());
}

namespace {

/// Replaces an old application by a new one while steps fail, or the program is killed.
class Placement : public testing::Test
{
protected:
    Placement()
    {
        write("from/Tidlo.app/Contents/which", "new");
        home.folder("Applications");
    }

    void write(const FilePath &relative, const char *text) const
    {
        home.file(relative, 0);
        std::ofstream((home / relative).toStdString()) << text;
    }

    static std::string which(const FilePath &application)
    {
        std::string text;
        std::getline(std::ifstream((application + "/Contents/which").toStdString()), text);
        return text;
    }

    /// Restores the old application, and nothing else.
    void begin() const
    {
        ASSERT_EQ(std::system(("rm -rf '" + home.path() + "/Applications'").constData()), 0);
        write("Applications/Tidlo.app/Contents/which", "old");
    }

    using Around = std::function<int(int number, const std::function<int()> &real)>;

    /// The system's steps, each passed to \a around with its number from 0 on; with or without an atomic exchange.
    static PlacementSteps stepsThrough(const Around &around, bool canExchange)
    {
        const PlacementSteps real = livePlacementSteps();
        const auto count = std::make_shared<int>(0);
        const auto onTwo = [=](const PlacementSteps::OnTwo &step) {
            return [=](const FilePath &from, const FilePath &to) {
                return around((*count)++, [&] { return step(from, to); });
            };
        };
        PlacementSteps steps{
            .copy = onTwo(real.copy),
            .exchange = onTwo(real.exchange),
            .rename = onTwo(real.rename),
            .remove = [=](const FilePath &path) { return around((*count)++, [&] { return real.remove(path); }); }};
        if (!canExchange)
            steps.exchange = [](const FilePath &, const FilePath &) { return EINVAL; };
        return steps;
    }

    /// The working folders beside the application, as absolute paths.
    QList<FilePath> workshops() const
    {
        QList<FilePath> found;
        for (const auto &[name, entry] : home.inventory()) {
            if (name.starts_with("Applications/.") && name.find('/', sizeof "Applications/") == std::string::npos)
                found.append(home / FilePath::fromStdString(name));
        }
        return found;
    }

    void expectOldOrNew(const std::optional<QString> &told) const
    {
        const std::string there = which(destination);
        if (there == "old" || there == "new")
            return;
        ASSERT_EQ(access(destination.constData(), F_OK), -1) << "half of one";
        ASSERT_TRUE(told);
        const FilePath text = told->toUtf8();
        const FilePath place = text.mid(text.indexOf(home.path()));
        EXPECT_EQ(which(place), "old") << text.constData();
    }

    TemporaryHome home;
    const FilePath source = home / "from/Tidlo.app";
    const FilePath destination = home / "Applications/Tidlo.app";
};

constexpr int mostSteps = 6;

} // namespace

TEST_F(Placement, LeavesTheOldOrTheNewOneWhicheverStepsFail)
{
    for (const bool canExchange : {true, false}) {
        for (const bool isDoneAllTheSame : {false, true}) { // A network file system may report an error although the
                                                            // step was done.
            for (int failing = 0; failing < 1 << mostSteps; ++failing) {
                SCOPED_TRACE(testing::Message() << canExchange << isDoneAllTheSame << ' ' << failing);
                begin();
                int taken = 0;
                const auto around = [&](int number, const std::function<int()> &real) {
                    taken = number + 1;
                    const bool fails = ((failing >> number) & 1) != 0;
                    const int result = fails && !isDoneAllTheSame ? EIO : real();
                    return fails ? EIO : result;
                };
                const auto told = copyApplication(source, destination, stepsThrough(around, canExchange));
                ASSERT_LE(taken, mostSteps);
                expectOldOrNew(told);
                const bool isTold = (failing & ((1 << taken) - 1)) != 0;
                EXPECT_EQ(told.has_value(), isTold);
                if (!isTold) {
                    EXPECT_EQ(which(destination), "new");
                    EXPECT_TRUE(workshops().isEmpty());
                }
            }
        }
    }
}

TEST_F(Placement, TellsWhereTheOldOneLiesWhenItCannotComeBack)
{
    begin();
    const auto around = [](int number, const std::function<int()> &real) { return number >= 2 ? EIO : real(); };

    const auto told = copyApplication(source, destination, stepsThrough(around, false));

    ASSERT_EQ(workshops().size(), 1);
    EXPECT_EQ(told, *because(EIO) + QStringLiteral("\nWhat was there before is now in ") +
                        QString::fromUtf8(workshops().front() + "/old"));
    EXPECT_EQ(which(workshops().front() + "/old"), "old");
}

TEST_F(Placement, PutsTheOldOneBackWhenTheNewOneCannotCome)
{
    begin();
    const auto around = [](int number, const std::function<int()> &real) { return number == 2 ? EIO : real(); };

    EXPECT_EQ(copyApplication(source, destination, stepsThrough(around, false)), because(EIO));

    EXPECT_EQ(which(destination), "old");
    EXPECT_TRUE(workshops().isEmpty());
}

TEST_F(Placement, TellsWhenWhatItReplacedCannotBeRemoved)
{
    begin();
    PlacementSteps steps = livePlacementSteps();
    steps.remove = [](const FilePath &) { return EIO; };

    EXPECT_EQ(copyApplication(source, destination, steps), because(EIO));

    EXPECT_EQ(which(destination), "new");
}

TEST_F(Placement, KilledAfterAnyStepLeavesTheOldOrTheNewOneAndTheNextOneTidiesUp)
{
    for (const bool canExchange : {true, false}) {
        for (int last = 0; last < mostSteps; ++last) {
            SCOPED_TRACE(testing::Message() << canExchange << ' ' << last);
            begin();
            const auto killing = [&](int number, const std::function<int()> &real) {
                const int result = real();
                if (number == last)
                    raise(SIGKILL);
                return result;
            };
            const ChildResult killed = inChild(
                [&] { return !copyApplication(source, destination, stepsThrough(killing, canExchange)).has_value(); });
            const QList<FilePath> left = workshops();
            const bool isOldKept =
                std::ranges::any_of(left, [](const FilePath &path) { return which(path + "/old") == "old"; });
            if (!killed.succeeded && access(destination.constData(), F_OK) != 0) {
                EXPECT_FALSE(canExchange);
                EXPECT_TRUE(isOldKept);
            } else {
                expectOldOrNew({});
            }
            // A failed placement removes nothing that others left behind.
            const auto failing = [](int number, const std::function<int()> &real) {
                return number >= 1 && number <= 3 ? EIO : real();
            };
            EXPECT_TRUE(copyApplication(source, destination, stepsThrough(failing, canExchange)));
            for (const FilePath &path : left)
                EXPECT_EQ(access(path.constData(), F_OK), 0) << path.constData();

            EXPECT_EQ(copyApplication(source, destination), std::nullopt);

            EXPECT_EQ(which(destination), "new");
            EXPECT_TRUE(workshops().isEmpty());
        }
    }
}

TEST_F(Placement, RemovesNothingThatOnlyLooksLikeWhatWasLeftOver)
{
    begin();
    write("elsewhere/kept", "");
    for (const char *name : {".Tidlo.app.abcde/kept", ".Tidlo.app.abcdefg/kept", ".Other.app.abcdef/kept",
                             "Tidlo.app.abcdef/kept", ".Tidlo.app/kept", ".Tidlo.app.a-file", ".Tidlo.app.theirs/kept"})
        write(FilePath("Applications/") + name, "");
    write("Applications/.Tidlo.app.filexx", "");
    home.link("Applications/.Tidlo.app.linkxx", home / "elsewhere");
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(chown((home / "Applications/.Tidlo.app.theirs").constData(), 65534, 65534), 0);
    }
    write("Applications/.Tidlo.app.ours00/new/file", "");
    auto expected = home.inventory();
    std::erase_if(expected, [&](const auto &entry) {
        return entry.first.starts_with("Applications/.Tidlo.app.ours00") ||
               (!isRoot && entry.first.starts_with("Applications/.Tidlo.app.theirs"));
    });

    EXPECT_EQ(copyApplication(source, destination), std::nullopt);

    const auto remaining = home.inventory();
    EXPECT_EQ(remaining.size(), expected.size());
    for (const auto &[name, entry] : expected)
        EXPECT_TRUE(remaining.contains(name)) << name;
}

TEST_F(Placement, RemovesNoWorkshopThatAnotherOneUses)
{
    begin();
    const auto workshop = Workshop::make(destination);
    ASSERT_TRUE(workshop);

    EXPECT_EQ(copyApplication(source, destination), std::nullopt);

    EXPECT_EQ(workshops(), QList{workshop->path()});
}

} // namespace tidlo
