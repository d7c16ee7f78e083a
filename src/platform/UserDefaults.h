#pragma once

#include "platform/PreferenceStore.h"

#include <QObject>

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
    const std::unique_ptr<PreferenceStore> store;
};

} // namespace tidlo
