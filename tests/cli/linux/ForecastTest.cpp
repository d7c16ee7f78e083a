#include "cli/CliRun.h"
#include "support/OwnMounts.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace tidlo {

namespace {

namespace fs = std::filesystem;

/// The free bytes on the file system of \a folder, after everything written has reached it.
qint64 freeOn(const FilePath &folder)
{
    sync();
    struct statvfs figures;
    EXPECT_EQ(statvfs(folder.constData(), &figures), 0);
    return static_cast<qint64>(figures.f_bfree * figures.f_frsize);
}

/// The bytes of \a folder and the folders beneath themselves, without their content.
qint64 foldersIn(const FilePath &folder)
{
    qint64 bytes = 0;
    const auto add = [&](const fs::path &path) {
        struct stat status;
        if (lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
            bytes += status.st_blocks * 512;
    };
    add(folder.toStdString());
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder.toStdString()))
        add(entry.path());
    return bytes;
}

/// Projects whose packages are hard links into a store, as some package managers make them: each project has
/// \a packages packages, the same in all projects, and the first half of them is in the store as well.
void fillLikeAPackageStore(const TemporaryHome &home, int packages)
{
    for (int package = 0; package < packages; ++package) {
        const FilePath name = "package" + FilePath::number(package);
        const FilePath first = home.file("home/Sites/a/node_modules/" + name + "/lib/index.js", 40'000 + package);
        home.folder("home/Sites/b/node_modules/" + name + "/lib");
        home.hardLink("home/Sites/b/node_modules/" + name + "/lib/index.js", first);
        home.file("home/Sites/b/node_modules/" + name + "/own.js", 10'000);
        if (package % 2 == 0)
            home.hardLink("home/store-" + name, first);
    }
}

} // namespace

TEST(Forecast, IsWhatADiskGivesBackWhenTheTrashIsEmptied)
{
    const TemporaryHome disk;
    const FilePath image = disk.sparseFile("image", qint64(128) << 20);
    const FilePath folder = disk.folder("disk");
    const std::string makeDisk = "mkfs.ext4 -q -F '" + image.toStdString() + "' && mount -o loop '" +
                                 image.toStdString() + "' '" + folder.toStdString() + '\'';
    inOwnMounts([&] {
        if (geteuid() != 0 || std::system(makeDisk.c_str()) != 0)
            GTEST_SKIP() << "No disk can be made of a file here, so no forecast was held against one.";
        const TemporaryHome home(folder);
        fillLikeAPackageStore(home, 400);
        const CliSetup setup{.environment = {"HOME=" + home / "home", "XDG_DATA_HOME"}};
        const CliRun scan = runCli(home, {"scan", "--json"}, setup);
        const auto json = nlohmann::json::parse(scan.output.toStdString());
        const qint64 freed = json["forecast"]["freedBytes"];
        const qint64 held = json["forecast"]["heldByLinksBytes"];
        EXPECT_EQ(freed + held, json["totals"]["recoverableBytes"]);
        EXPECT_GT(held, freed);
        const qint64 folders =
            foldersIn(home / "home/Sites/a/node_modules") + foldersIn(home / "home/Sites/b/node_modules");

        EXPECT_EQ(runCli(home, {"clean", "--yes"}, setup).status, 0);
        const qint64 before = freeOn(folder);
        for (const char *part : {"files", "info"})
            fs::remove_all((home / "home/.local/share/Trash/" + part).toStdString());
        const auto givenBack = static_cast<double>(freeOn(folder) - before);
        EXPECT_NEAR(static_cast<double>(freed + folders) / givenBack, 1, 0.01);
    });
}

} // namespace tidlo
