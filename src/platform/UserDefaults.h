#pragma once

#include "model/FilePath.h"
#include "platform/PreferenceStore.h"

#include <QList>
#include <QObject>

#include <array>

namespace tidlo {

/// The preferences of the user, in the system's usual storage. A value that is set is in force from then on, and stored
/// at once. For missing or damaged values the defaults apply; if nothing can be read or written, set values are in
/// force until the program ends. Main thread.
class UserDefaults final : public QObject
{
    Q_OBJECT

public:
    // The keys, and the values in force if nothing usable is stored under them.
    static constexpr QLatin1StringView theme{"tidloTheme"}; ///< A text; ThemePreference knows the default.
    static constexpr QLatin1StringView setupCompleted{"tidlo.setup.completed"}; ///< A boolean; false.

    /// A boolean; true, but false if something unreadable is stored: it may have been switched off.
    static constexpr QLatin1StringView explanations{"tidlo.explanations"};

    // Lists of paths, absent until one is added.
    static constexpr QLatin1StringView spared{"tidlo.spared"}; ///< Places that are never suggested.
    static constexpr QLatin1StringView places{"tidlo.places"}; ///< Folders where projects are looked for as well.
    static constexpr std::array lists{spared, places};

    /// The preferences of this user. Needs no application object.
    explicit UserDefaults(QObject *parent = nullptr);

    /// Preferences in a file of their own.
    explicit UserDefaults(const QString &file, QObject *parent = nullptr);

    QString string(QLatin1StringView key, const QString &otherwise) const;
    /// \a otherwise if nothing is stored; false if the stored value cannot be read.
    bool boolean(QLatin1StringView key, bool otherwise = false) const;

    /// The list that is stored under \a key at this moment, whoever stored it; nothing if it may exist and cannot be
    /// read, which never counts as empty.
    std::optional<QList<FilePath>> paths(QLatin1StringView key) const;
    /// Stores the list with \a path added at its end, or removed, in one step in which no other program can change it.
    /// False if the list cannot be read or stored.
    bool addPath(QLatin1StringView key, const FilePath &path);
    bool removePath(QLatin1StringView key, const FilePath &path);

    /// Stores at once, and signals the change even if the value is the same. An invalid value removes the key.
    void set(QLatin1StringView key, const QVariant &value);

Q_SIGNALS:
    void changed(const QString &key);

private:
    bool changePaths(QLatin1StringView key, const std::function<void(QList<FilePath> &)> &change);

    const std::unique_ptr<PreferenceStore> store;
};

} // namespace tidlo
