#include "platform/UserDefaults.h"

#include <QStandardPaths>

namespace {

constexpr QLatin1StringView identifier{"com.tidlo.storagecleaner"};

#ifdef Q_OS_MACOS
QString fileOfUser()
{
    return QDir::homePath() + QStringLiteral("/Library/Preferences/") + identifier + QStringLiteral(".plist");
}
constexpr QSettings::Format format = QSettings::NativeFormat;
#else
QString fileOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') + identifier +
           QStringLiteral(".conf");
}
constexpr QSettings::Format format = QSettings::IniFormat;
#endif

} // namespace

UserDefaults::UserDefaults(QObject *parent)
    : UserDefaults(fileOfUser(), parent)
{}

UserDefaults::UserDefaults(const QString &file, QObject *parent)
    : QObject(parent)
    , settings(file, format)
{}

QString UserDefaults::string(QLatin1StringView key, const QString &otherwise) const
{
    return settings.value(key, otherwise).toString();
}

bool UserDefaults::boolean(QLatin1StringView key) const
{
    return settings.value(key, false).toBool();
}

void UserDefaults::set(QLatin1StringView key, const QVariant &value)
{
    settings.setValue(key, value);
    settings.sync();
    Q_EMIT changed(key);
}
