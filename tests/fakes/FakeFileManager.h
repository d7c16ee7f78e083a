#pragma once

#include "platform/FileManager.h"

#include <gmock/gmock.h>

namespace tidlo {

/// A file manager for one home folder. It does what the live one does except where a test says otherwise with ON_CALL
/// or EXPECT_CALL, so that any call can be made to fail, be watched or be held up. Two things differ from the start:
/// nothing outside the home is searched, and the Trash is the folder ".trash" in the home.
class FakeFileManager : public FileManager
{
public:
    explicit FakeFileManager(const FilePath &home);
    ~FakeFileManager() override; // Defined in another file, so that not every test compiles the whole class.

    MOCK_METHOD(FilePath, homeDirectoryForCurrentUser, (), (const, override));
    MOCK_METHOD(bool, fileExists, (const FilePath &), (const, override));
    MOCK_METHOD(std::optional<FileAttributes>, attributesOfItem, (const FilePath &), (const, override));
    MOCK_METHOD(std::optional<QList<DirectoryEntry>>, contentsOfDirectory, (const FilePath &, WalkNotes *),
                (const, override));
    MOCK_METHOD(QList<CollectedItem>, enumerate, (const DeepEnumeration &, std::stop_token), (const, override));
    MOCK_METHOD(QList<qint64>, allocatedSizes, (const QList<FilePath> &, std::stop_token, WalkNotes *),
                (const, override));
    MOCK_METHOD(std::optional<VolumeCapacity>, volumeCapacity, (const FilePath &), (const, override));
    MOCK_METHOD(std::optional<VolumeCapacity>, fileSystemAttributes, (const FilePath &), (const, override));
    MOCK_METHOD(bool, mayShareBlocks, (const FilePath &), (const, override));
    MOCK_METHOD(TrashOutcome, trashItem, (const FilePath &), (override));
    MOCK_METHOD(QList<bool>, leftByTrash, (const QList<FilePath> &), (const, override));
    MOCK_METHOD(QList<TrashOutcome>, restoreItems, (const QList<TrashedItem> &, const std::function<bool()> &),
                (override));
    MOCK_METHOD(TrashContents, trashedItems, (std::stop_token), (const, override));

    /// For the actions of tests to call.
    FileManager &live() const { return *liveFiles; }

private:
    std::unique_ptr<FileManager> liveFiles = makeFileManager();
};

} // namespace tidlo
