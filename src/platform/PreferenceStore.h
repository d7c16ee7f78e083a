#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <memory>

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
};

/// The place that this system has for those of this user. Needs no application object.
std::unique_ptr<PreferenceStore> preferencesOfUser();

/// A file for them alone. At every moment it is the old or the new one, whole; one that is missing, empty or damaged
/// holds nothing.
std::unique_ptr<PreferenceStore> preferencesIn(const QString &file);

} // namespace tidlo
