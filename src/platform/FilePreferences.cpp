#include "platform/AtomicFile.h"
#include "platform/Descriptor.h"
#include "platform/FolderLock.h"
#include "platform/PreferenceStore.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr QSettings::Format format = QSettings::NativeFormat;

/// The content of a file with \a values, empty on failure. It is written elsewhere first, since QSettings locks the
/// file that it changes, and would wait for the lock of a program that was killed.
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
        const FolderLock lock(QFile::encodeName(folder()));
        const bool losesNoList = std::ranges::all_of(UserDefaults::lists, [&](auto list) { return isReadable(list); });
        if (lock.isHeld() && losesNoList)
            store(own);
    }

    std::optional<QVariant> kept(QLatin1StringView key) override
    {
        return isReadable(key) ? std::optional(stored.value(key)) : std::nullopt;
    }

    bool change(QLatin1StringView key, const std::function<QVariant(const QVariant &)> &changed) override
    {
        if (!QDir().mkpath(folder()))
            return false;
        const FolderLock lock(QFile::encodeName(folder()));
        return lock.isHeld() && isReadable(key) && store({{key, changed(stored.value(key))}});
    }

private:
    QString folder() const { return QFileInfo(stored.fileName()).absolutePath(); }

    /// Reads the file again: another program may have written it. Returns whether it is known what is stored under
    /// \a key, or that nothing is. A damaged file may contain a line with that key but no readable value.
    bool isReadable(QLatin1StringView key)
    {
        stored.sync();
        QFile file(stored.fileName());
        const FilePath path = QFile::encodeName(file.fileName());
        struct stat status;
        if (const int error = errorOf([&] { return lstat(path.constData(), &status); }))
            return error == ENOENT || error == ENOTDIR;
        if (!file.open(QIODevice::ReadOnly))
            return false;
        const QList<QByteArray> lines = file.readAll().split('\n');
        return stored.contains(key) || std::ranges::none_of(lines, [&](const QByteArray &line) {
                   return line.trimmed().startsWith(key.data());
               });
    }

    /// Replaces the stored values by the same ones with \a changes.
    bool store(const QVariantMap &changes)
    {
        QVariantMap values;
        for (const QString &key : stored.allKeys())
            values.insert(key, stored.value(key));
        values.insert(changes);
        values.removeIf([](const QVariantMap::iterator &entry) { return !entry->isValid(); });
        const QByteArray content = fileSaying(values);
        if (content.isEmpty() && !values.isEmpty())
            return false;
        const QFileInfo file(stored.fileName());
        const QString place = file.exists() ? file.canonicalFilePath() : file.filePath(); // Some people make it a link.
        const bool isWritten = writeAtomically(QFile::encodeName(place), content) == 0;
        stored.sync();
        return isWritten;
    }

    QSettings stored; ///< Only for reading.
    QVariantMap own;  ///< Values that were set here.
};

} // namespace

std::unique_ptr<PreferenceStore> preferencesIn(const QString &file)
{
    return std::make_unique<FilePreferences>(file);
}

} // namespace tidlo
