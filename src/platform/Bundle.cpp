#include "platform/Bundle.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/ExecutablePath.h"
#include "platform/InfoPlist.h"

namespace tidlo {

namespace {

constexpr QByteArrayView extension(".app");

bool isBundlePath(const FilePath &path)
{
    return path.size() - path.lastIndexOf('/') - 1 > extension.size() && path.endsWith(extension);
}

FilePath nearestBundle(const FilePath &executable)
{
    for (qsizetype end = executable.lastIndexOf('/'); end > 0; end = executable.lastIndexOf('/', end - 1)) {
        const FilePath folder = executable.left(end);
        if (isBundlePath(folder))
            return folder;
    }
    return executable;
}

QHash<QString, QString> infoOf(const FilePath &path)
{
    return readInfoPlist(path + "/Contents/Info.plist");
}

std::optional<QByteArray> identifierIn(const QHash<QString, QString> &info)
{
    const QString identifier = info.value(QStringLiteral("CFBundleIdentifier"));
    return identifier.isEmpty() ? std::nullopt : std::optional(identifier.toUtf8());
}

} // namespace

bool Bundle::isApplication() const
{
    return isBundlePath(path) && executable.left(executable.lastIndexOf('/')) == path + "/Contents/MacOS";
}

bool Bundle::isOurs() const
{
    return isApplication() && identifier.value_or(applicationIdentifier) == applicationIdentifier;
}

Bundle bundleOf(const FilePath &executable)
{
    const FilePath path = nearestBundle(executable);
    return {.path = path, .executable = executable, .identifier = identifierIn(infoOf(path))};
}

Bundle bundleAt(const FilePath &path)
{
    const QHash<QString, QString> info = infoOf(path);
    const QString name = info.value(QStringLiteral("CFBundleExecutable"));
    return {.path = path,
            .executable = name.isEmpty() ? path : path + "/Contents/MacOS/" + name.toUtf8(),
            .identifier = identifierIn(info)};
}

Bundle mainBundle()
{
    return bundleOf(executablePath());
}

} // namespace tidlo
