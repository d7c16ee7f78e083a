#include "platform/UserDefaults.h"

#include "platform/AtomicFile.h"

#include <QFileInfo>
#include <QTemporaryDir>

namespace tidlo {

namespace {

constexpr QSettings::Format format = QSettings::NativeFormat;

/// The content of a file that says \a values, empty on failure. It is drafted elsewhere, since QSettings locks the file
/// that it changes, and would wait for the lock of a program that was killed.
QByteArray fileSaying(const QVariantMap &values)
{
    const QTemporaryDir folder;
    QSettings draft(folder.filePath(QStringLiteral("draft")), format);
    for (const auto &[key, value] : values.asKeyValueRange())
        draft.setValue(key, value);
    draft.sync();
    QFile file(draft.fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

UserDefaults::UserDefaults(QObject *parent)
    : UserDefaults(QFile::decodeName(preferencesFile()), parent)
{}

UserDefaults::UserDefaults(const QString &file, QObject *parent)
    : QObject(parent)
    , stored(file, format)
{}

QVariant UserDefaults::value(QLatin1StringView key) const
{
    return own.value(key, stored.value(key));
}

QString UserDefaults::string(QLatin1StringView key, const QString &otherwise) const
{
    const QVariant found = value(key);
    return found.typeId() == QMetaType::QString ? found.toString() : otherwise;
}

bool UserDefaults::boolean(QLatin1StringView key) const
{
    return value(key).toString() == u"true"; // Any other text would convert to true as well.
}

void UserDefaults::set(QLatin1StringView key, const QVariant &value)
{
    own.insert(key, value);
    store();
    Q_EMIT changed(key);
}

void UserDefaults::store()
{
    stored.sync(); // Another program may have set something else.
    if (stored.status() == QSettings::AccessError)
        return;
    QVariantMap values;
    for (const QString &key : stored.allKeys())
        values.insert(key, stored.value(key));
    values.insert(own);
    values.removeIf([](const QVariantMap::iterator &entry) { return !entry->isValid(); });
    const QByteArray content = fileSaying(values);
    if (content.isEmpty() && !values.isEmpty())
        return;
    const QFileInfo file(stored.fileName());
    const QString place = file.exists() ? file.canonicalFilePath() : file.filePath(); // Some people make links of them.
    writeAtomically(QFile::encodeName(place), content);
    stored.sync();
}

} // namespace tidlo
