#pragma once

#include "platform/Descriptor.h"
#include "platform/FileAttributes.h"

#include <QByteArrayView>

#include <memory>
#include <optional>

namespace tidlo {

/// The attributes of an entry from one system call, without following links.
struct EntryStatus
{
    FileAttributes attributes;
    quint64 mount = 0; ///< Identifies the mount that it is on.
    quint64 device = 0;
    quint64 inode = 0; ///< Identifies the file on the device.
    quint32 links = 1; ///< How many names it has.
};

/// Identifies a folder while it exists.
struct FolderIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    bool operator==(const FolderIdentity &) const = default;
};

/// Opens folders for listing, each relative to one that is open already, so that no change of the path leads outside.
/// Access times are left alone where the system allows. Thread-safe.
class FolderOpener final
{
public:
    /// Asks the system once which calls it supports.
    FolderOpener();

    /// Opens a folder by its path, following links on the way; with \a followsLink also one at its end.
    Descriptor openRoot(const FilePath &path, bool followsLink) const;

    /// Opens the folder \a name beneath \a parent, on the same mount; \a name may have several components. No link in
    /// it is followed. Not valid if there is no such folder.
    Descriptor openBeneath(int parent, const char *name) const;

private:
    Descriptor openStepwise(int parent, const char *name) const;

    bool confined; ///< The system can resolve several components with these limits in one call.
};

/// Lists folders in batches of entries, with one buffer for all of them.
class FolderReader final
{
public:
    struct Entry
    {
        QByteArrayView name; ///< Ends with a NUL; valid until the next batch is read.
        FileKind kind;       ///< Unknown if the listing does not contain it; then use statusOf.
    };

    FolderReader();
    ~FolderReader();

    enum class Batch {
        some, ///< There are entries; they may be the last.
        full, ///< There are entries, and very likely more will follow.
        end,  ///< The listing is complete.
        failed,
    };
    /// Reads the next batch of the listing of \a folder. The first call allocates the buffer, and throws if there is no
    /// memory.
    Batch readBatch(int folder);

    /// The errno of the batch that failed.
    int error() const { return failure; }

    /// The next entry of the batch, without "." and ".."; nothing at its end.
    std::optional<Entry> nextEntry();

private:
    struct Buffer;
    std::unique_ptr<Buffer> buffer;
    int failure = 0;
};

/// Which attributes a caller needs: asking for less is cheaper on some file systems.
enum class StatusDetail { sizeOnDisk, everything };

/// Reads the attributes of an entry of \a folder, or of the folder itself if \a name is empty; nothing if that fails.
std::optional<EntryStatus> statusOf(int folder, const char *name, StatusDetail detail);

/// The identity of an open folder; nothing if it cannot be read.
std::optional<FolderIdentity> identityOf(int folder);

} // namespace tidlo
