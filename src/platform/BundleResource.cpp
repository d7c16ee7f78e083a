#include "platform/BundleResource.h"

#include <QCoreApplication>
#include <QDir>

QString bundleResource(const QString &name)
{
    if (!QCoreApplication::instance())
        return {};
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1StringView("/../Resources/") + name);
}
