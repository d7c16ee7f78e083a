#pragma once

#include "model/FilePath.h"

#include <QObject>
#include <QSettings>

namespace tidlo {

/// The preferences of the user, kept in the system's own place for them. What is set holds from then on, and is stored
/// at once: the file is the old or the new one, whole, whenever the program is killed. A file that is missing, empty or
/// damaged means the defaults; where it cannot be read or written, what was set holds until the program ends. Main
/// thread.
class UserDefaults final : public QObject
{
    Q_OBJECT

public:
    // The keys, and what holds while nothing usable is stored under them.
    static constexpr QLatin1StringView theme{"tidloTheme"};                     ///< A text; "dark".
    static constexpr QLatin1StringView setupCompleted{"tidlo.setup.completed"}; ///< A truth value; false.

    /// The preferences of this user. Needs no application object.
    explicit UserDefaults(QObject *parent = nullptr);

    /// Those in a file of their own.
    explicit UserDefaults(const QString &file, QObject *parent = nullptr);

    QString string(QLatin1StringView key, const QString &otherwise) const;
    bool boolean(QLatin1StringView key) const;

    /// Stores at once, and tells whether or not the value is another. An invalid one leaves nothing stored.
    void set(QLatin1StringView key, const QVariant &value);

Q_SIGNALS:
    void changed(const QString &key);

private:
    QVariant value(QLatin1StringView key) const;
    void store();

    QSettings stored; ///< Only read from.
    QVariantMap own;  ///< What was set here.
};

/// Where the preferences of this user lie, as the system has it. Read from the environment each time.
FilePath preferencesFile();

} // namespace tidlo
