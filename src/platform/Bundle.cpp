#include "platform/Bundle.h"

#include "platform/Descriptor.h"
#include "platform/Process.h"

#include <QFile>
#include <QXmlStreamReader>

#include <fcntl.h>

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
        FilePath folder = executable.left(end);
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

QHash<QString, QString> readInfoPlist(const FilePath &file)
{
    const Descriptor descriptor(open(file.constData(), O_RDONLY | O_CLOEXEC)); // The name may not be valid text.
    QFile device;
    if (!descriptor.isValid() || !device.open(descriptor.get(), QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&device);
    if (!xml.readNextStartElement() || xml.name() != u"plist" || !xml.readNextStartElement() || xml.name() != u"dict")
        return {};
    QHash<QString, QString> texts;
    QString key;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"key")
            key = xml.readElementText();
        else if (xml.name() == u"string")
            texts.insert(key, xml.readElementText());
        else
            xml.skipCurrentElement();
    }
    return xml.hasError() ? QHash<QString, QString>() : texts;
}

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
