#include "platform/InfoPlist.h"

#include <QFile>
#include <QXmlStreamReader>

QHash<QString, QString> readInfoPlist(const FilePath &file)
{
    QFile device(QFile::decodeName(file));
    if (!device.open(QIODevice::ReadOnly))
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
