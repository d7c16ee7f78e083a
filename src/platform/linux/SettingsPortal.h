#pragma once

#include "platform/DesktopSettings.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariant>

#include <array>
#include <chrono>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tidlo {

/// What the desktop's portal for settings tells over D-Bus, as xdg-desktop-portal specifies it:
/// org.freedesktop.portal.Settings. What was told holds until something else is. Whatever is not of the type that a
/// setting has counts as no wish, and who never answered the questions cannot tell of a change. Main thread.
class SettingsPortal final : public QObject, public DesktopSettings
{
    Q_OBJECT

public:
    /// How long an answer may take; the portal may have to be started for it.
    static constexpr std::chrono::milliseconds usualPatience{10'000};

    /// \a bus may be connected to nothing.
    SettingsPortal(const QDBusConnection &bus, std::function<void(const DesktopWishes &)> told,
                   std::chrono::milliseconds patience = usualPatience);
    ~SettingsPortal() override;

private Q_SLOTS:
    void takeChange(const QDBusMessage &message);

private: // NOLINT(readability-redundant-access-specifiers): these are no slots.
    static constexpr size_t settingCount = 7;

    void ask();
    void take(size_t setting, const QVariant &value);

    QDBusConnection bus;
    const std::function<void(const DesktopWishes &)> told;
    const std::chrono::milliseconds patience;
    QDBusServiceWatcher presence;
    std::array<std::unique_ptr<QDBusPendingCallWatcher>, settingCount> questions;
    QString portal; ///< Who answered: its own name on the bus.
    std::array<QVariant, settingCount> values;
    DesktopWishes wishes;
};

} // namespace tidlo
