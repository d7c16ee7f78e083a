// Moves 1,000 folders with the same name, each from a separate folder, to the Trash, and makes the bare calls that
// every move needs if it must survive a power cut: mkdir, open, write, fsync, close and rename. The two alternate item
// by item, so that a busy disk slows both. Then puts 10,000 items back, and makes the bare calls for that: open, read,
// close, rename and unlink; the two alternate every 1,000 items. Prints the median of the rounds for each, and their
// ratios.
//
// trash_bench [folder to work in, on the disk to be measured]

#include "platform/linux/TrashRecord.h"
#include "platform/linux/XdgTrash.h"
#include "support/TemporaryHome.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr int items = 1'000;
constexpr int rounds = 5;
constexpr std::time_t now = 1'700'000'000;

using Milliseconds = std::chrono::duration<double, std::milli>;

template <typename Work>
Milliseconds timeOf(const Work &work)
{
    const auto begin = std::chrono::steady_clock::now();
    if (!work()) {
        std::perror("trash_bench");
        std::exit(EXIT_FAILURE);
    }
    return std::chrono::steady_clock::now() - begin;
}

/// The least that a move must do if the Trash exists: write the record to the disk and rename the item.
bool moveBarely(const FilePath &trash, const FilePath &item, int number)
{
    constexpr std::string_view record = "[Trash Info]\nPath=/home/somebody/project/node_modules\n"
                                        "DeletionDate=2023-11-14T22:13:20\n";
    const FilePath name = '/' + FilePath::number(number);
    mkdir((trash + "/files").constData(), 0700);
    const int file = open((trash + "/info" + name).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    return file >= 0 && write(file, record.data(), record.size()) > 0 && fsync(file) == 0 && close(file) == 0 &&
           rename(item.constData(), (trash + "/files" + name).constData()) == 0;
}

struct Round
{
    Milliseconds bare{};
    Milliseconds ours{};
};

Round measure(const FilePath &disk)
{
    const TemporaryHome home(disk);
    const FilePath bareTrash = home.folder("bare");
    home.folder("bare/files");
    home.folder("bare/info");
    const XdgTrash trash(home.path(), home / ".local/share");
    std::vector<std::array<FilePath, 2>> pairs;
    for (int item = 0; item < items; ++item) {
        const FilePath number = FilePath::number(item);
        pairs.push_back({home.folder("a/" + number + "/node_modules"), home.folder("b/" + number + "/node_modules")});
    }
    sync(); // So that earlier writes do not count for the first record.
    Round round;
    const auto bare = [&](int item) {
        round.bare += timeOf([&] { return moveBarely(bareTrash, pairs[item][0], item); });
    };
    const auto ours = [&](int item) {
        round.ours += timeOf([&] { return trash.move(pairs[item][1], now).kind == TrashOutcome::Kind::moved; });
    };
    for (int item = 0; item < items; item += 2) {
        bare(item);
        ours(item);
        ours(item + 1);
        bare(item + 1);
    }
    return round;
}

constexpr int restored = 10'000;
constexpr int together = 1'000;

/// Puts items and their records into the \a trash, as if each had been in a separate folder in \a from.
QList<TrashedItem> filledTrash(const TemporaryHome &home, const FilePath &trash, const FilePath &from)
{
    QList<TrashedItem> items;
    for (int item = 0; item < restored; ++item) {
        const FilePath number = FilePath::number(item);
        const FilePath origin = home.folder(from + '/' + number) + "/node_modules";
        home.folder(trash + "/files/" + number);
        const FilePath record = home.file(trash + "/info/" + number + ".trashinfo", 0);
        const int file = open(record.constData(), O_WRONLY | O_CLOEXEC);
        const QByteArray text = trashRecord(origin, now);
        if (write(file, text.constData(), text.size()) != text.size() || close(file) != 0)
            std::abort();
        items.append({.trash = home / trash, .name = number, .origin = origin});
    }
    return items;
}

/// The least that a restore must do: read the record, rename the item, remove the record.
bool restoreBarely(const TrashedItem &item)
{
    std::array<char, 4096> text;
    const FilePath record = item.trash + "/info/" + item.name + ".trashinfo";
    const int file = open(record.constData(), O_RDONLY | O_CLOEXEC);
    return file >= 0 && read(file, text.data(), text.size()) > 0 && close(file) == 0 &&
           rename((item.trash + "/files/" + item.name).constData(), item.origin.constData()) == 0 &&
           unlink(record.constData()) == 0;
}

Round measureRestore(const FilePath &disk)
{
    const TemporaryHome home(disk);
    const QList<TrashedItem> bareItems = filledTrash(home, "bare", "a");
    const QList<TrashedItem> ourItems = filledTrash(home, ".local/share/Trash", "b");
    const XdgTrash trash(home.path(), home / ".local/share");
    sync();
    Round round;
    const auto bare = [&](int at) {
        round.bare += timeOf([&] { return std::ranges::all_of(bareItems.mid(at, together), restoreBarely); });
    };
    const auto ours = [&](int at) {
        const QList<TrashedItem> items = ourItems.mid(at, together);
        round.ours += timeOf([&] {
            return std::ranges::all_of(trash.restore(items, [] { return false; }), [](const TrashOutcome &outcome) {
                return outcome.kind == TrashOutcome::Kind::moved;
            });
        });
    };
    for (int at = 0; at < restored; at += 2 * together) {
        bare(at);
        ours(at);
        ours(at + together);
        bare(at + together);
    }
    return round;
}

double median(std::array<Round, rounds> all, Milliseconds Round::*part)
{
    std::ranges::nth_element(all, all.begin() + rounds / 2, {}, part);
    return (all[rounds / 2].*part).count();
}

void print(const std::array<Round, rounds> &all, int count, const char *what)
{
    const double bare = median(all, &Round::bare);
    const double ours = median(all, &Round::ours);
    std::printf("%6d bare sequences  %8.1f ms\n", count, bare);
    std::printf("%6d %-14s  %8.1f ms\n", count, what, ours);
    std::printf("ratio                  %8.2f\n", ours / bare);
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const FilePath disk = count > 1 ? FilePath(arguments[1]) : QDir::currentPath().toLocal8Bit();
    std::array<Round, rounds> all;
    std::ranges::generate(all, [&] { return measure(disk); });
    print(all, items, "moves");
    std::ranges::generate(all, [&] { return measureRestore(disk); });
    print(all, restored, "restores");
}
