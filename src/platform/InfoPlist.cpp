#include "platform/InfoPlist.h"

#include "platform/Descriptor.h"

#include <QFile>
#include <QXmlStreamReader>

#include <fcntl.h>

namespace tidlo {

QHash<QString, QString> readInfoPlist(const FilePath &file)
{
    const Descriptor descriptor(open(file.constData(), O_RDONLY | O_CLOEXEC)); // The name need not be a text.
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

} // namespace tidlo
