#include "platform/UserDefaults.h"

#include "platform/ApplicationIdentifier.h"

#include <QStandardPaths>

namespace {

#ifdef Q_OS_MACOS
QString fileOfUser()
{
    return QDir::homePath() + QStringLiteral("/Library/Preferences/") + applicationIdentifier +
           QStringLiteral(".plist");
}
constexpr QSettings::Format format = QSettings::NativeFormat;
#else
QString fileOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
           applicationIdentifier + QStringLiteral(".conf");
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
    const QVariant value = settings.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : otherwise;
}

bool UserDefaults::boolean(QLatin1StringView key) const
{
    return settings.value(key).toString() == u"true"; // Any other text would convert to true as well.
}

void UserDefaults::set(QLatin1StringView key, const QVariant &value)
{
    settings.setValue(key, value);
    settings.sync();
    Q_EMIT changed(key);
}
