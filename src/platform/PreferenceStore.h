#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// A storage of preferences. Main thread.
class PreferenceStore
{
public:
    virtual ~PreferenceStore() = default;

    /// The text or boolean in force under \a key; an invalid value if there is none.
    virtual QVariant value(QLatin1StringView key) const = 0;

    /// Sets \a value, which is in force from now on, and stores it at once if possible. An invalid value removes the
    /// key.
    virtual void set(QLatin1StringView key, const QVariant &value) = 0;

    /// What is stored under \a key at this moment, whoever stored it: a text or a boolean, or an invalid value if there
    /// is none. Nothing if the storage exists and cannot be read.
    virtual std::optional<QVariant> kept(QLatin1StringView key) = 0;

    /// Replaces what is stored under \a key by the result of \a changed, in one step: no other program can change it in
    /// between. False if it could not be read or stored; then nothing has changed.
    virtual bool change(QLatin1StringView key, const std::function<QVariant(const QVariant &)> &changed) = 0;
};

/// The storage of this user's preferences on this system. Needs no application object.
std::unique_ptr<PreferenceStore> preferencesOfUser();

/// Preferences in a file. At every moment it is the complete old or new file; a missing, empty or damaged one counts as
/// empty.
std::unique_ptr<PreferenceStore> preferencesIn(const QString &file);

} // namespace tidlo
