#pragma once

#include "platform/Descriptor.h"
#include "platform/FileAttributes.h"

#include <QByteArrayView>

#include <memory>
#include <optional>

namespace tidlo {

/// What a file system tells of an entry in one question, links not followed.
struct EntryStatus
{
    FileAttributes attributes;
    quint64 mount = 0; ///< Identifies the mount it lies on.
    quint64 device = 0;
    quint64 inode = 0; ///< Which file of the device.
    quint32 links = 1; ///< How many names lead to it.
};

/// What identifies a folder for as long as it exists.
struct FolderIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    bool operator==(const FolderIdentity &) const = default;
};

/// Opens folders to be listed, each relative to one that is open already, so that nothing that happens to the path
/// meanwhile leads outside. Access times are left alone where the system allows. Thread-safe.
class FolderOpener final
{
public:
    /// Asks the system once what it can do.
    FolderOpener();

    /// A folder by its path, links on the way followed; with \a followsLink also one at its end.
    Descriptor openRoot(const FilePath &path, bool followsLink) const;

    /// The folder \a name beneath \a parent, on the same mount; \a name may have several components. No link is
    /// followed, wherever it stands. Not valid if there is none.
    Descriptor openBeneath(int parent, const char *name) const;

private:
    Descriptor openStepwise(int parent, const char *name) const;

    bool confined; ///< The system resolves several components and checks them at once.
};

/// Lists folders, a batch of entries at a time, into one buffer that it keeps.
class FolderReader final
{
public:
    struct Entry
    {
        QByteArrayView name; ///< Ends with a NUL; valid until the next batch is read.
        FileKind kind;       ///< Unknown where listings do not tell; ask statusOf.
    };

    FolderReader();
    ~FolderReader();

    enum class Batch {
        some, ///< There are entries, and this was perhaps all.
        full, ///< There are entries, and most likely more to come.
        end,  ///< The listing is complete.
        failed,
    };
    /// Reads on in the listing of \a folder. The first call makes the buffer, and throws where there is no memory for
    /// it.
    Batch readBatch(int folder);

    /// The errno of a batch that failed.
    int error() const { return failure; }

    /// The next entry of the batch, "." and ".." left out; nothing at its end.
    std::optional<Entry> nextEntry();

private:
    struct Buffer;
    std::unique_ptr<Buffer> buffer;
    int failure = 0;
};

/// Which attributes a caller needs: asking for less is cheaper on some file systems.
enum class StatusDetail { sizeOnDisk, everything };

/// Asks for an entry of \a folder, or for the folder itself with an empty \a name; nothing if the system does not tell.
std::optional<EntryStatus> statusOf(int folder, const char *name, StatusDetail detail);

/// The identity of an open folder; nothing if the system does not tell.
std::optional<FolderIdentity> identityOf(int folder);

} // namespace tidlo
