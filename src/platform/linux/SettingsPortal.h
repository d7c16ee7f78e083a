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

/// Reads the desktop's settings from its portal over D-Bus, as xdg-desktop-portal specifies:
/// org.freedesktop.portal.Settings. A value stays in force until another one comes. A value of the wrong type counts as
/// no wish, and only the service that answered the questions may report a change. Main thread.
class SettingsPortal final : public QObject, public DesktopSettings
{
    Q_OBJECT

public:
    /// How long an answer may take; the portal may have to be started for it.
    static constexpr std::chrono::milliseconds usualPatience{10'000};

    /// \a bus need not be connected.
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
    QString portal; ///< The unique bus name of the service that answered.
    std::array<QVariant, settingCount> values;
    DesktopWishes wishes;
};

} // namespace tidlo
