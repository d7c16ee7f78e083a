#include "platform/AtomicFile.h"

#include "platform/Descriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

int writeAll(int descriptor, const QByteArray &content)
{
    for (qsizetype done = 0; done < content.size();) {
        const ssize_t written = uninterrupted([&] {
            return pwrite(descriptor, content.constData() + done, static_cast<size_t>(content.size() - done), done);
        });
        if (written < 0)
            return errno;
        done += written;
    }
    return errorOf([&] { return fsync(descriptor); });
}

} // namespace

int writeAtomically(const FilePath &path, const QByteArray &content, mode_t permissions)
{
    std::error_code failure;
    std::filesystem::create_directories(path.left(path.lastIndexOf('/') + 1).toStdString(), failure);
    if (failure)
        return failure.value();
    FilePath pending;
    const Descriptor file(uninterrupted([&] {
        pending = path + ".XXXXXX";
        return mkostemp(pending.data(), O_CLOEXEC); // Readable only by the user.
    }));
    if (!file.isValid())
        return file.error();
    int error = errorOf([&] { return fchmod(file.get(), permissions); });
    if (error == 0)
        error = writeAll(file.get(), content);
    if (error == 0)
        error = errorOf([&] { return std::rename(pending.constData(), path.constData()); });
    if (error != 0)
        unlink(pending.constData());
    return error;
}

} // namespace tidlo
