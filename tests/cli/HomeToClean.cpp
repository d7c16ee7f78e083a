#include "cli/HomeToClean.h"

#include <QDir>

#include <sys/stat.h>

namespace tidlo {

using namespace std::chrono_literals;

std::unique_ptr<TemporaryHome> homeToClean()
{
    auto home = std::make_unique<TemporaryHome>();
    home->file("Sites/one/node_modules/a.js", 32'768);
    home->file("Sites/two/node_modules/b.js", 8'192);
    home->file("Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media/photo.jpg", 20'480);
    home->file("Library/Caches/pip/wheel", 12'288);
    home->file("Downloads/setup.zip", 8'192);
    home->setModified("Downloads/setup.zip", std::chrono::system_clock::now() - 46 * 24h);
    return home;
}

QByteArrayList selectedPaths(const TemporaryHome &home)
{
    return {home / "Sites/one/node_modules", home / "Sites/two/node_modules", home / "Library/Caches/pip",
            home / "Downloads/setup.zip"};
}

QByteArrayList existing(const QByteArrayList &paths)
{
    QByteArrayList found;
    for (const QByteArray &path : paths) {
        struct stat status;
        if (lstat(path.constData(), &status) == 0)
            found.append(path);
    }
    return found;
}

QByteArrayList trashed(const TemporaryHome &home)
{
    QByteArrayList names;
    const QDir trash(QFile::decodeName(home / ".local/share/Trash/files"));
    for (const QString &name : trash.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        names.append(QFile::encodeName(name));
    std::ranges::sort(names);
    return names;
}

} // namespace tidlo
