#include "platform/Workspace.h"

#include "platform/AtomicFile.h"
#include "platform/Bundle.h"
#include "platform/Process.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/OpenFolder.h"
#include "platform/linux/UserFolders.h"

#include <QCoreApplication>
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

class LinuxWorkspace final : public Workspace
{
public:
    /// Writes the entry that menus show, and the icon it names.
    void registerApplication(const FilePath &application) override
    {
        const UserFiles files = userFilesOf(applicationIdentifier);
        const auto logo = readSystemFile(uninterrupted(SystemCalls()), application + "/Contents/Resources/logo.png");
        if (logo)
            writeAtomically(files.icon, *logo);
        writeAtomically(files.desktopEntry, desktopEntry(bundleAt(application).executable, applicationIdentifier));
    }

    void openApplication(const FilePath &application, Opened opened) override
    {
        opened(startDetached(bundleAt(application).executable, {}));
    }

    /// Over the session bus, by the freedesktop.org interface org.freedesktop.FileManager1; if no file browser answers,
    /// the folder is opened with xdg-open.
    void showInFiles(const FilePath &item) override
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

    std::optional<QString> start(const FilePath &program, const QByteArrayList &arguments) override
    {
        return startDetached(program, arguments);
    }

    void terminateApplication() override { QCoreApplication::quit(); }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<LinuxWorkspace>();
}

} // namespace tidlo
