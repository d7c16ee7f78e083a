// Makes a home folder for the benchmarks: make_home <folder> <files>
//
// Always the same for the same number: web projects with nested, scoped and linked packages, PHP projects with vendor
// folders, built output, sources, chat media, caches, downloads and media folders with sparse large files.

#include "platform/Descriptor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr int projects = 60;

void require(bool succeeded, const char *what, const std::string &name)
{
    if (succeeded)
        return;
    std::fprintf(stderr, "make_home: %s %s: %s\n", what, name.c_str(), std::strerror(errno));
    std::exit(EXIT_FAILURE);
}

/// An open folder in which entries are made.
class Folder final
{
public:
    explicit Folder(const std::string &path)
        : Folder(AT_FDCWD, path)
    {}

    Folder folder(const std::string &name) const { return {descriptor.get(), name}; }

    void file(const std::string &name, size_t bytes) const
    {
        static const std::array<char, 64 * 1024> content{};
        const Descriptor file(openat(descriptor.get(), name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
        require(file.isValid() && write(file.get(), content.data(), bytes) == static_cast<ssize_t>(bytes), "write",
                name);
    }

    void oldSparseFile(const std::string &name, off_t bytes) const
    {
        const Descriptor file(openat(descriptor.get(), name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
        const std::array<timespec, 2> lastYear{timespec{.tv_sec = std::time(nullptr) - 365 * 86'400, .tv_nsec = 0},
                                               timespec{.tv_sec = std::time(nullptr) - 365 * 86'400, .tv_nsec = 0}};
        require(file.isValid() && write(file.get(), "x", 1) == 1 && ftruncate(file.get(), bytes) == 0 &&
                    futimens(file.get(), lastYear.data()) == 0,
                "write", name);
    }

    void link(const std::string &name, const std::string &target) const
    {
        require(symlinkat(target.c_str(), descriptor.get(), name.c_str()) == 0, "link", name);
    }

    /// Makes \a count files, most of them of one block, in folders as in real packages.
    void files(int count) const
    {
        constexpr int inOneFolder = 8;
        for (int made = 0; made < count; made += inOneFolder) {
            const Folder part = folder("lib" + std::to_string(made / inOneFolder));
            for (int index = 0; index < inOneFolder && made + index < count; ++index)
                part.file("module" + std::to_string(index) + ".js", size_t(index % 4) * 1500);
        }
    }

private:
    Folder(int parent, const std::string &name)
    {
        require(mkdirat(parent, name.c_str(), 0755) == 0 || errno == EEXIST, "mkdir", name);
        descriptor = Descriptor(openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        require(descriptor.isValid(), "open", name);
    }

    Descriptor descriptor;
};

void makePackages(const Folder &modules, int files)
{
    constexpr int inOnePackage = 24;
    const Folder scope = modules.folder("@scope");
    const Folder tools = modules.folder(".bin");
    for (int made = 0; made < files; made += inOnePackage) {
        const int number = made / inOnePackage;
        const std::string name = "package" + std::to_string(number);
        const Folder package = number % 5 == 0 ? scope.folder(name) : modules.folder(name);
        package.file("package.json", 700);
        package.file(".npmignore", 20);
        package.files(inOnePackage - 2);
        if (number % 7 == 0)
            package.folder("node_modules").folder("nested" + std::to_string(number)).file("index.js", 900);
        tools.link(name, "../" + name + "/index.js");
    }
}

void makeProject(const Folder &sites, int number, int files)
{
    const Folder project = sites.folder("project" + std::to_string(number));
    project.file("package.json", 900);
    const Folder source = project.folder("src");
    source.files(files / 20);
    project.folder(".git").folder("objects").files(files / 40);
    const bool isPhp = number % 4 == 0;
    if (isPhp) {
        project.file("composer.json", 500);
        makePackages(project.folder("vendor"), files / 5);
    }
    makePackages(project.folder("node_modules"), files * (isPhp ? 6 : 8) / 10);
    project.folder("dist").files(files / 20);
    project.folder("build").files(files / 20);
}

void makeRest(const Folder &home, int files)
{
    home.folder(".cache").folder("tool").files(files / 3);
    home.folder("Library").folder("Caches").folder("Google").folder("Profile").files(files / 3);
    home.folder(".gradle").folder("caches").files(files / 6);
    home.folder("Library")
        .folder("Group Containers")
        .folder("group.net.whatsapp.WhatsApp.shared")
        .folder("Message")
        .folder("Media")
        .files(files / 6);
    for (const char *name : {"Downloads", "Desktop", "Documents", "Movies", "Pictures", "Music"}) {
        const Folder media = home.folder(name);
        for (int index = 0; index < 10; ++index)
            media.oldSparseFile("recording" + std::to_string(index) + ".mov", off_t(200'000'000) + index);
        media.folder("albums").files(files / 20);
    }
    for (const char *name : {"shop", "shop copy", "shop-backup"})
        home.folder("Sites").folder("localhost").folder(name).files(files / 60);
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const int files = count == 3 ? std::atoi(arguments[2]) : 0;
    if (files <= 0) {
        std::fprintf(stderr, "usage: make_home <folder> <files>\n");
        return 2;
    }
    const Folder home(arguments[1]);
    const Folder sites = home.folder("Sites");
    const int inProjects = files / 10 * 9;
    for (int number = 0; number < projects; ++number)
        makeProject(sites, number, inProjects / projects);
    makeRest(home, files - inProjects);
}
