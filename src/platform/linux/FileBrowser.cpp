#include "platform/linux/FileBrowser.h"

#include "platform/DetachedProcess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStandardPaths>

namespace tidlo {

namespace {

QString uriOf(const FilePath &path)
{
    return QStringLiteral("file://") + QString::fromLatin1(path.toPercentEncoding("/"));
}

void openFolderOf(const FilePath &item)
{
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty())
        startDetached(opener.toLocal8Bit(), {item.left(std::max<qsizetype>(item.lastIndexOf('/'), 1))});
}

} // namespace

void showInFiles(const FilePath &item)
{
    QDBusMessage show = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    show << QStringList{uriOf(item)} << QString();
    auto *call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(show));
    QObject::connect(call, &QDBusPendingCallWatcher::finished, call, [call, item] {
        call->deleteLater();
        if (call->isError())
            openFolderOf(item);
    });
}

} // namespace tidlo
