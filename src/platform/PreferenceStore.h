#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// Where preferences are kept. Main thread.
class PreferenceStore
{
public:
    virtual ~PreferenceStore() = default;

    /// A text or a truth value; an invalid one if neither is kept under \a key.
    virtual QVariant value(QLatin1StringView key) const = 0;

    /// Holds \a value from now on, and keeps it at once where it can be kept. An invalid one leaves nothing there.
    virtual void set(QLatin1StringView key, const QVariant &value) = 0;

    /// What is kept under \a key at this moment, whoever set it: a text or a truth value, or an invalid one if there is
    /// none. Nothing if the place is there and cannot be read.
    virtual std::optional<QVariant> kept(QLatin1StringView key) = 0;

    /// Replaces what is kept under \a key by what \a changed makes of it, in one step: no other program can set
    /// anything here in between. False if that could not be read or kept; then nothing has changed.
    virtual bool change(QLatin1StringView key, const std::function<QVariant(const QVariant &)> &changed) = 0;
};

/// The place where this system keeps the preferences of this user. Needs no application object.
std::unique_ptr<PreferenceStore> preferencesOfUser();

/// Preferences in a file of their own. At every moment it is the old or the new one, whole; one that is missing, empty
/// or damaged holds nothing.
std::unique_ptr<PreferenceStore> preferencesIn(const QString &file);

} // namespace tidlo
