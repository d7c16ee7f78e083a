#include "Scene.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr std::time_t now = 1'700'000'000;

void makeFile(const FilePath &path, const char *content)
{
    std::filesystem::create_directories(std::filesystem::path(path.toStdString()).parent_path());
    std::ofstream(path.toStdString()) << content;
}

} // namespace

Scene::Scene(FilePath top, SceneSetup setup, FilePath home)
    : top(std::move(top))
    , setup(setup)
    , home(home.isEmpty() ? this->top : home)
{}

FilePath Scene::trash() const
{
    return home == top ? top + "/.local/share/Trash" : top + "/.Trash-" + FilePath::number(geteuid());
}

void Scene::setUp()
{
    for (const auto &entry : std::filesystem::directory_iterator(top.toStdString()))
        std::filesystem::remove_all(entry);
    if (setup.isFolder)
        makeFile(item() + "/inner", "inside");
    else
        makeFile(item(), "content");
    const FilePath record = trash() + "/info/item.trashinfo";
    std::vector<FilePath> bystanders{parent() + "/neighbour", top + "/documents/letter"};
    if (setup.isNameTaken)
        bystanders.insert(bystanders.end(), {trash() + "/files/item", record, trash() + "/files/item 2"});
    others.clear();
    for (const FilePath &path : bystanders) {
        makeFile(path, path == record ? "[Trash Info]\nPath=/x\nDeletionDate=2020-01-01T00:00:00\n" : "keep");
        others[path] = stateOf(path);
    }
    itself = stateOf(item());
    inner = stateOf(item() + "/inner");
    inTrashBefore = setup.isNameTaken ? 2 : 0;
    if (!setup.isBack)
        return;
    inTrash = move({}).trashed;
    if (setup.isParentMissing)
        std::filesystem::remove_all((parent() + "/old").toStdString());
}

TrashOutcome Scene::move(const SystemCalls &calls) const
{
    return XdgTrash(home, home + "/.local/share", calls).move(item(), now);
}

TrashOutcome Scene::restore(const SystemCalls &calls) const
{
    return XdgTrash(home, home + "/.local/share", calls).restore({*inTrash}, [] { return false; }).value(0);
}

bool Scene::hasLitter() const
{
    if (!setup.isBack || isAtPlace())
        return addedToTrash() != 0;
    return stateOf(item()) != State();
}

bool Scene::isAtPlace() const
{
    return stateOf(item()) == itself && stateOf(item() + "/inner") == inner;
}

bool Scene::isInTrash() const
{
    const DecodedTrash decoded = decodeTrash(trash(), top);
    return std::ranges::any_of(decoded.items, [this](const DecodedItem &trashed) {
        const FilePath place = trash() + "/files/" + trashed.name;
        return trashed.originalPath == item() && stateOf(place) == itself && stateOf(place + "/inner") == inner;
    });
}

bool Scene::areOthersUnchanged() const
{
    return std::ranges::all_of(others, [](const auto &other) { return stateOf(other.first) == other.second; });
}

size_t Scene::addedToTrash() const
{
    const DecodedTrash decoded = decodeTrash(trash(), top);
    return decoded.items.size() + decoded.brokenRecords.size() + decoded.orphans.size() - inTrashBefore;
}

Scene::State Scene::stateOf(const FilePath &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 ? State{.inode = status.st_ino, .size = status.st_size} : State{};
}

} // namespace tidlo
