#pragma once

#include "model/FilePath.h"
#include "platform/PreferenceStore.h"

#include <QList>
#include <QObject>

#include <array>

namespace tidlo {

/// The preferences of the user, kept in the system's own place for them. What is set holds from then on, and is stored
/// at once. What is missing or damaged means the defaults; where nothing can be read or written, what was set holds
/// until the program ends. Main thread.
class UserDefaults final : public QObject
{
    Q_OBJECT

public:
    // The keys, and what holds while nothing usable is stored under them.
    static constexpr QLatin1StringView theme{"tidloTheme"};                     ///< A text; "dark".
    static constexpr QLatin1StringView setupCompleted{"tidlo.setup.completed"}; ///< A truth value; false.

    /// A truth value; true, but false while something is stored that cannot be read: then it may have been chosen.
    static constexpr QLatin1StringView explanations{"tidlo.explanations"};

    // Those of lists of paths, absent until one is added.
    static constexpr QLatin1StringView spared{"tidlo.spared"}; ///< Places that are never suggested.
    static constexpr QLatin1StringView places{"tidlo.places"}; ///< Folders where projects are looked for as well.
    static constexpr std::array lists{spared, places};

    /// The preferences of this user. Needs no application object.
    explicit UserDefaults(QObject *parent = nullptr);

    /// Those in a file of their own.
    explicit UserDefaults(const QString &file, QObject *parent = nullptr);

    QString string(QLatin1StringView key, const QString &otherwise) const;
    /// \a otherwise while nothing is stored; what cannot be read counts as false.
    bool boolean(QLatin1StringView key, bool otherwise = false) const;

    /// The list under \a key as it is kept at this moment, whoever set it; nothing if it may be there and cannot be
    /// read, which never counts as empty.
    std::optional<QList<FilePath>> paths(QLatin1StringView key) const;
    /// Keeps it with \a path added at its end, or without it. One step, between which no other program changes it.
    /// False if that cannot be kept, or the list not be read.
    bool addPath(QLatin1StringView key, const FilePath &path);
    bool removePath(QLatin1StringView key, const FilePath &path);

    /// Stores at once, and signals the change even if the value is the same. An invalid one leaves nothing stored.
    void set(QLatin1StringView key, const QVariant &value);

Q_SIGNALS:
    void changed(const QString &key);

private:
    bool changePaths(QLatin1StringView key, const std::function<void(QList<FilePath> &)> &change);

    const std::unique_ptr<PreferenceStore> store;
};

} // namespace tidlo
