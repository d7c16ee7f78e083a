#include "cli/CommandLine.h"
#include "cli/PathArgument.h"
#include "fuzz/Input.h"
#include "support/TemporaryHome.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

namespace {

/// A home folder with a few items to clean and to put back, none of them on a disk. It counts the items that it is
/// asked to move.
class MadeUpFiles final : public FileManager
{
public:
    FilePath homeDirectoryForCurrentUser() const override { return "/nowhere"; }
    bool fileExists(const FilePath &path) const override { return path.endsWith(".cache"); }
    std::optional<FileAttributes> attributesOfItem(const FilePath &) const override { return std::nullopt; }
    std::optional<QList<DirectoryEntry>> contentsOfDirectory(const FilePath &, WalkNotes *) const override
    {
        return std::nullopt;
    }
    QList<CollectedItem> enumerate(const DeepEnumeration &, std::stop_token) const override { return {}; }
    QList<qint64> allocatedSizes(const QList<FilePath> &paths, std::stop_token, WalkNotes *) const override
    {
        return QList<qint64>(paths.size(), 4096);
    }
    std::optional<VolumeCapacity> volumeCapacity(const FilePath &) const override { return std::nullopt; }
    std::optional<VolumeCapacity> fileSystemAttributes(const FilePath &) const override { return std::nullopt; }
    bool mayShareBlocks(const FilePath &) const override { return false; }
    TrashOutcome trashItem(const FilePath &) override
    {
        ++moves;
        return TrashOutcome::moved({});
    }
    QList<bool> leftByTrash(const QList<FilePath> &paths) const override { return QList<bool>(paths.size(), false); }
    QList<TrashOutcome> restoreItems(const QList<TrashedItem> &items, const std::function<bool()> &) override
    {
        moves += items.size();
        return QList<TrashOutcome>(items.size(), TrashOutcome::gone());
    }
    TrashContents trashedItems(std::stop_token) const override
    {
        const TrashedItem undated{.trash = "/nowhere/.local/share/Trash", .name = "a", .origin = "/nowhere/a"};
        const TrashedItem dated{.trash = "/nowhere/.local/share/Trash", .name = "b", .origin = "/nowhere/b"};
        TrashContents contents;
        contents.items = {{.item = dated, .moved = FileTime(std::chrono::seconds(1'700'000'000))}, {.item = undated}};
        return contents;
    }

    qsizetype moves = 0;
};

/// Replaces everything outside of the program: no terminal, and no service to ask.
struct Surroundings
{
    Surroundings()
    {
        qputenv("TIDLO_AI_PROXY_HOST", "");
        const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
        dup2(nothing, STDIN_FILENO);
        close(nothing);
    }

    int count = 1;
    char name[8] = "command";
    char *arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
    TemporaryHome folder{TemporaryHome::parentInMemory()};
};

} // namespace

} // namespace tidlo

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    static const Surroundings surroundings;
    QStringList arguments;
    const QByteArray bytes = bytesOf(data, size);
    for (const QByteArray &argument : size == 0 ? QByteArrayList() : bytes.split('\n'))
        arguments.append(argumentText(argument.left(argument.indexOf('\0'))));
    const auto files = std::make_shared<MadeUpFiles>();
    FileSizeScanner scanner(files);
    const QString preferences = QFile::decodeName(surroundings.folder / "preferences.conf");
    UserDefaults defaults(preferences);
    CommandContext context{.files = *files, .scanner = scanner, .defaults = defaults};
    const ExitStatus status = runCommandLine(arguments, context);
    QFile::remove(preferences);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    require(status >= ExitStatus::succeeded && status <= ExitStatus::refused, "a command line ends with a status");
    require(files->moves == 0 || arguments.contains(QStringLiteral("--yes")), "nothing is moved that nobody agreed to");
    require(status != ExitStatus::misused || files->moves == 0, "a wrong command line moves nothing");
    return 0;
}
