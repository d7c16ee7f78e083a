#include "fakes/FakeFileManager.h"

#include "platform/Paths.h"

#include <cerrno>
#include <cstdio>

#include <sys/stat.h>

namespace tidlo {

namespace {

/// Numbered, so that items of the same name can lie side by side.
TrashOutcome moveToFolder(const FilePath &folder, const FilePath &path)
{
    mkdir(folder.constData(), 0700);
    int number = 0;
    struct stat status;
    FilePath target;
    do {
        target = folder + '/' + FilePath::number(++number) + ' ' + lastPathComponent(path).toByteArray();
    } while (lstat(target.constData(), &status) == 0);
    if (std::rename(path.constData(), target.constData()) == 0)
        return TrashOutcome::moved({.trash = folder, .name = lastPathComponent(target).toByteArray(), .origin = path});
    return {.kind = errno == ENOENT ? TrashOutcome::Kind::gone : TrashOutcome::Kind::failed,
            .reason = QStringLiteral("It could not be renamed."),
            .error = errno};
}

TrashOutcome moveBack(const TrashedItem &item)
{
    struct stat status;
    if (lstat(item.origin.constData(), &status) == 0)
        return TrashOutcome::refused(QStringLiteral("Something else is at its place by now."));
    if (std::rename(joined(item.trash, item.name).constData(), item.origin.constData()) == 0)
        return {.kind = TrashOutcome::Kind::moved};
    return TrashOutcome::gone();
}

} // namespace

FakeFileManager::~FakeFileManager() = default;

FakeFileManager::FakeFileManager(const FilePath &home)
{
    using testing::_;
    const auto passOn = [this](auto operation) {
        return [this, operation](const auto &...arguments) { return (live().*operation)(arguments...); };
    };
    ON_CALL(*this, homeDirectoryForCurrentUser).WillByDefault([home] { return home; });
    ON_CALL(*this, fileExists).WillByDefault(passOn(&FileManager::fileExists));
    ON_CALL(*this, attributesOfItem).WillByDefault(passOn(&FileManager::attributesOfItem));
    ON_CALL(*this, contentsOfDirectory).WillByDefault(passOn(&FileManager::contentsOfDirectory));
    ON_CALL(*this, enumerate).WillByDefault([this, home](DeepEnumeration enumeration, const std::stop_token &stop) {
        enumeration.roots.removeIf([&home](const FilePath &root) { return !root.startsWith(home + '/'); });
        return live().enumerate(enumeration, stop);
    });
    ON_CALL(*this, allocatedSizes).WillByDefault(passOn(&FileManager::allocatedSizes));
    ON_CALL(*this, volumeCapacity).WillByDefault(passOn(&FileManager::volumeCapacity));
    ON_CALL(*this, fileSystemAttributes).WillByDefault(passOn(&FileManager::fileSystemAttributes));
    ON_CALL(*this, trashItem).WillByDefault([home](const FilePath &path) {
        return moveToFolder(home + "/.trash", path);
    });
    ON_CALL(*this, leftByTrash).WillByDefault([](const QList<FilePath> &paths) {
        return QList<bool>(paths.size(), false);
    });
    ON_CALL(*this, restoreItems)
        .WillByDefault([](const QList<TrashedItem> &items, const std::function<bool()> &stopRequested) {
            QList<TrashOutcome> outcomes;
            for (const TrashedItem &item : items) {
                if (stopRequested())
                    break;
                outcomes.append(moveBack(item));
            }
            return outcomes;
        });
}

} // namespace tidlo
