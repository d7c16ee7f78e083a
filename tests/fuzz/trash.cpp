#include "fuzz/Input.h"
#include "platform/linux/XdgTrash.h"
#include "support/GeneratedTree.h"
#include "support/TemporaryHome.h"

#include <algorithm>
#include <array>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr std::array telling{"a",    "b",      "c",           ".local",      "share",    "Trash",    "files",
                             "info", ".Trash", "a.trashinfo", "b.trashinfo", "expunged", ".Trash-0", "c.trashinfo"};

/// A user's home folder, and beside it the files of somebody else.
struct Top
{
    TemporaryHome top{TemporaryHome::parentInMemory()};
    FilePath home = top.folder("home");
    FilePath trash = home + "/.local/share/Trash";
    FilePath other = top.file("other/kept");
    XdgTrash xdg{home, home + "/.local/share"};
};

/// Adds an item to the Trash as any program might have left it there, with any record. The path in the record begins
/// with the home folder.
void makeTrashed(const Top &top, Decisions &decisions)
{
    for (const char *folder :
         {"/.local", "/.local/share", "/.local/share/Trash", "/.local/share/Trash/files", "/.local/share/Trash/info"})
        mkdir((top.home + folder).constData(), 0700);
    const FilePath name = decisions.name(telling);
    makeSomething(top.trash + "/files/" + name, decisions, telling);
    const FilePath record = top.trash + "/info/" + name + ".trashinfo";
    const QByteArray bytes = decisions.bytes();
    if (bytes.contains("Path") || QByteArray::fromPercentEncoding(bytes).contains(".."))
        return; // It might lead out of the home folder.
    const int file = open(record.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file == -1)
        return;
    const QByteArray content = "[Trash Info]\nPath=" + top.home.toPercentEncoding("/") + '/' + bytes;
    std::ignore = write(file, content.constData(), static_cast<size_t>(content.size()));
    close(file);
}

/// Everything except records and the folders of a Trash, identified by inode and not by path.
std::set<ino_t> things(const Top &top)
{
    std::set<ino_t> all;
    for (const auto &[path, entry] : top.top.inventory()) {
        if (!path.ends_with(".trashinfo"))
            all.insert(entry.inode);
    }
    return all;
}

bool isThere(const FilePath &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0;
}

QList<TrashedItem> listed(const Top &top)
{
    QList<TrashedItem> items;
    for (const ListedItem &listed : top.xdg.list({}).items) {
        if (listed.item.trash == top.trash) // Other mounts are not touched.
            items.append(listed.item);
    }
    return items;
}

void move(const Top &top, const FilePath &path)
{
    const TrashOutcome outcome = top.xdg.move(path, 1'700'000'000);
    using enum TrashOutcome::Kind;
    require(outcome.kind != moved || !isThere(path), "what was moved is gone from its place");
    require(outcome.kind != gone || !isThere(path), "what is gone is not there");
    require((outcome.kind == moved || outcome.kind == gone) == outcome.reason.isEmpty(), "what stayed has a reason");
    if (outcome.kind == moved && outcome.trashed && outcome.trashed->trash == top.trash) {
        const auto isIt = [&](const TrashedItem &item) { return item.name == outcome.trashed->name; };
        const QList<TrashedItem> all = listed(top);
        const auto found = std::ranges::find_if(all, isIt);
        require(found != all.end() && found->origin == outcome.trashed->origin, "what was moved is listed");
    }
}

void restoreAll(const Top &top)
{
    const QList<TrashedItem> items = listed(top);
    for (const TrashedItem &item : items)
        require(item.origin.startsWith(top.home + '/') && !(item.origin + '/').contains("/../"),
                "a record leads to where it says");
    const QList<TrashOutcome> outcomes = top.xdg.restore(items, [] { return false; });
    require(outcomes.size() == items.size(), "each item has an outcome");
    for (qsizetype at = 0; at < items.size(); ++at) {
        const FilePath inTrash = top.trash + "/files/" + items[at].name;
        require(outcomes[at].kind != TrashOutcome::Kind::moved || (isThere(items[at].origin) && !isThere(inTrash)),
                "what was put back is at its place");
    }
}

} // namespace

} // namespace tidlo

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const Top top;
    const auto otherBefore = TemporaryHome::Entry(top.top.inventory().at("other/kept"));
    Decisions decisions({data, size});
    for (int done = 0; done < 48 && decisions.areLeft(); ++done) {
        const unsigned what = decisions.below(8);
        if (what < 3) {
            makeSomething(top.home, decisions, telling);
        } else if (what < 5) {
            makeTrashed(top, decisions);
        } else {
            const std::set<ino_t> before = things(top);
            if (what < 7)
                move(top, top.home + '/' + decisions.path(telling));
            else
                restoreAll(top);
            require(std::ranges::includes(things(top), before), "nothing is lost");
            require(top.top.inventory().at("other/kept") == otherBefore, "nothing else is touched");
        }
    }
    return 0;
}
