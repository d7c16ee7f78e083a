#include "platform/linux/SettingsPortal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace tidlo {

namespace {

constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView path("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView interface("org.freedesktop.portal.Settings");

bool isNumber(const QVariant &value, uint number)
{
    return value.typeId() == QMetaType::UInt && value.toUInt() == number;
}

/// KDE sends its numbers as texts.
bool isNothing(const QVariant &value)
{
    constexpr qsizetype longest = 32;
    if (value.typeId() == QMetaType::Double)
        return value.toDouble() <= 0;
    bool isNumber = false;
    const QString text = value.typeId() == QMetaType::QString ? value.toString() : QString();
    return text.size() <= longest && text.toDouble(&isNumber) <= 0 && isNumber;
}

bool isYes(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool && value.toBool();
}

/// 1 if it is no number.
double textScaleOf(const QVariant &value)
{
    const double scale = value.typeId() == QMetaType::Double ? value.toDouble() : 1;
    return scale > 1 ? std::min(scale, mostTextScale) : 1;
}

struct Setting
{
    QLatin1StringView group;
    QLatin1StringView key;
    /// Applies a value to the wishes.
    void (*add)(const QVariant &value, DesktopWishes &wishes);
};

/// Several settings may say the same; one of them is enough.
constexpr std::array settings{
    Setting{QLatin1StringView("org.freedesktop.appearance"), QLatin1StringView("color-scheme"),
            [](const QVariant &value, DesktopWishes &wishes) {
                if (isNumber(value, 1) || isNumber(value, 2))
                    wishes.isDark = isNumber(value, 1);
            }},
    Setting{QLatin1StringView("org.freedesktop.appearance"), QLatin1StringView("reduced-motion"),
            [](const QVariant &value, DesktopWishes &wishes) { wishes.reducedMotion |= isNumber(value, 1); }},
    Setting{QLatin1StringView("org.gnome.desktop.interface"), QLatin1StringView("enable-animations"),
            [](const QVariant &value, DesktopWishes &wishes) {
                wishes.reducedMotion |= value.typeId() == QMetaType::Bool && !value.toBool();
            }},
    Setting{QLatin1StringView("org.kde.kdeglobals.KDE"), QLatin1StringView("AnimationDurationFactor"),
            [](const QVariant &value, DesktopWishes &wishes) { wishes.reducedMotion |= isNothing(value); }},
    Setting{QLatin1StringView("org.freedesktop.appearance"), QLatin1StringView("contrast"),
            [](const QVariant &value, DesktopWishes &wishes) { wishes.higherContrast |= isNumber(value, 1); }},
    Setting{QLatin1StringView("org.gnome.desktop.a11y.interface"), QLatin1StringView("high-contrast"),
            [](const QVariant &value, DesktopWishes &wishes) { wishes.higherContrast |= isYes(value); }},
    Setting{QLatin1StringView("org.gnome.desktop.interface"), QLatin1StringView("text-scaling-factor"),
            [](const QVariant &value, DesktopWishes &wishes) { wishes.textScale = textScaleOf(value); }},
};

/// A value may be wrapped in a variant twice.
QVariant unboxed(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

SettingsPortal::SettingsPortal(const QDBusConnection &bus, std::function<void(const DesktopWishes &)> told,
                               std::chrono::milliseconds patience)
    : bus(bus)
    , told(std::move(told))
    , patience(patience)
    , presence(service, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    static_assert(settings.size() == settingCount);
    // From every sender: to subscribe to the portal alone, Qt would block until the bus has said who owns that name.
    this->bus.connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
                      SLOT(takeChange(QDBusMessage)));
    connect(&presence, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) {
                if (!owner.isEmpty())
                    ask();
            });
    ask();
}

SettingsPortal::~SettingsPortal() = default;

/// The service that was asked before may be gone; its answer no longer matters.
void SettingsPortal::ask()
{
    for (size_t i = 0; i < settings.size(); ++i) {
        QDBusMessage read = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
        read << QString(settings.at(i).group) << QString(settings.at(i).key);
        const QDBusPendingCall call = bus.asyncCall(read, static_cast<int>(patience.count()));
        questions.at(i) = std::make_unique<QDBusPendingCallWatcher>(call);
        connect(questions.at(i).get(), &QDBusPendingCallWatcher::finished, this, [this, i](auto *question) {
            const QDBusMessage answer = question->reply();
            if (!answer.service().isEmpty()) // Otherwise nobody answered in time.
                portal = answer.service();
            if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == QLatin1StringView("v"))
                take(i, answer.arguments().constFirst());
        });
    }
}

void SettingsPortal::takeChange(const QDBusMessage &message)
{
    if (message.service() != portal || message.signature() != QLatin1StringView("ssv"))
        return;
    const QVariantList arguments = message.arguments();
    for (size_t i = 0; i < settings.size(); ++i) {
        if (arguments.at(0).toString() == settings.at(i).group && arguments.at(1).toString() == settings.at(i).key)
            take(i, arguments.at(2));
    }
}

void SettingsPortal::take(size_t setting, const QVariant &value)
{
    values.at(setting) = unboxed(value);
    DesktopWishes now;
    for (size_t i = 0; i < settings.size(); ++i)
        settings.at(i).add(values.at(i), now);
    if (now == wishes)
        return;
    wishes = now;
    told(wishes);
}

std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)> told)
{
    return std::make_unique<SettingsPortal>(QDBusConnection::sessionBus(), std::move(told));
}

} // namespace tidlo
