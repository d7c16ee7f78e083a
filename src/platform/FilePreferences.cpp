#include "platform/AtomicFile.h"
#include "platform/PreferenceStore.h"

#include <QFileInfo>
#include <QSettings>
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

class FilePreferences final : public PreferenceStore
{
public:
    explicit FilePreferences(const QString &file)
        : stored(file, format)
    {}

    QVariant value(QLatin1StringView key) const override { return own.value(key, stored.value(key)); }

    void set(QLatin1StringView key, const QVariant &value) override
    {
        own.insert(key, value);
        store();
    }

private:
    void store()
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
        const QString place =
            file.exists() ? file.canonicalFilePath() : file.filePath(); // Some people make links of them.
        writeAtomically(QFile::encodeName(place), content);
        stored.sync();
    }

    QSettings stored; ///< Only read from.
    QVariantMap own;  ///< What was set here.
};

} // namespace

std::unique_ptr<PreferenceStore> preferencesIn(const QString &file)
{
    return std::make_unique<FilePreferences>(file);
}

} // namespace tidlo
