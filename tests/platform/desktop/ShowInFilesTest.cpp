#include "platform/Workspace.h"
#include "platform/desktop/PrivateBus.h"
#include "support/PrintQt.h"
#include "support/WaitUntil.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFile>
#include <QFileSystemWatcher>

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::SizeIs;

const QString fileManager = QStringLiteral("org.freedesktop.FileManager1");

/// Replaces the desktop's file browser.
class StandInBrowser final : public QDBusVirtualObject
{
public:
    QList<QDBusMessage> asked;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        asked.append(message);
        return connection.send(message.createReply());
    }
};

/// Qt connects a program to its session bus once, so all tests here have the same one.
class ShowInFiles : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        bus.emplace();
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus->address().toUtf8());
    }
    static void TearDownTestSuite() { bus.reset(); }

    static std::optional<PrivateBus> bus;
    const std::unique_ptr<Workspace> workspace = makeWorkspace();
};

std::optional<PrivateBus> ShowInFiles::bus;

} // namespace

TEST_F(ShowInFiles, AsksTheFileBrowserForTheItemWhateverItsName)
{
    StandInBrowser browser;
    QDBusConnection connection = bus->connection(QStringLiteral("browser"));
    ASSERT_TRUE(connection.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), &browser));
    ASSERT_TRUE(connection.registerService(fileManager));

    workspace->showInFiles("/home/me/a b\xff?#");
    waitUntil([&] { return !browser.asked.isEmpty(); });
    connection.unregisterService(fileManager);

    ASSERT_THAT(browser.asked, SizeIs(1));
    const QDBusMessage &message = browser.asked.first();
    EXPECT_EQ(message.interface() + u'.' + message.member(), fileManager + QStringLiteral(".ShowItems"));
    EXPECT_EQ(message.signature(), QStringLiteral("ass"));
    EXPECT_THAT(message.arguments(),
                ElementsAre(QStringList{QStringLiteral("file:///home/me/a%20b%FF%3F%23")}, QString()));
}

TEST_F(ShowInFiles, OpensTheFolderOfTheItemWhereNoFileBrowserAnswers)
{
    const TemporaryHome home;
    const FilePath told = home / "told";
    QFile opener(QFile::decodeName(home / "xdg-open"));
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write("#!/bin/sh\nprintf %s \"$*\" > '" + told + ".new' && mv '" + told + ".new' '" + told + "'\n");
    opener.close();
    chmod((home / "xdg-open").constData(), 0700);
    const QFileSystemWatcher watcher({QFile::decodeName(home.path())}); // Wakes the event loop.
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", home.path() + ':' + path);

    for (const auto &[item, folder] : {std::pair<FilePath, QByteArray>{"/home/me/a b", "/home/me"}, {"/file", "/"}}) {
        workspace->showInFiles(item);
        QFile file(QFile::decodeName(told));
        waitUntil([&] { return file.open(QIODevice::ReadOnly); });
        EXPECT_EQ(file.readAll(), folder);
        file.remove();
    }
    qputenv("PATH", path);
}

} // namespace tidlo
