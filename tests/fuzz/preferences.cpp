#include "fuzz/Input.h"
#include "platform/UserDefaults.h"
#include "support/TemporaryHome.h"

#include <QFile>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    static const TemporaryHome home(TemporaryHome::parentInMemory());
    // A new file each time: QSettings recognises a file that it has read by its name, size and time.
    static int number = 0;
    const QString path = QFile::decodeName(home / FilePath::number(++number));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(bytesOf(data, size));
    file.close();

    UserDefaults defaults(path);
    defaults.string(UserDefaults::theme, QStringLiteral("dark"));
    defaults.boolean(UserDefaults::setupCompleted);
    const auto before = defaults.paths(UserDefaults::spared);
    defaults.set(UserDefaults::theme, QStringLiteral("light"));
    require(UserDefaults(path).paths(UserDefaults::spared) == before, "a setting changes no list");
    const FilePath added = "/a b\xff";
    const bool isAdded = defaults.addPath(UserDefaults::spared, added);
    const auto after = defaults.paths(UserDefaults::spared);
    require(isAdded ? after && after->contains(added) : after == before, "a list is added to, or stays");
    QFile::remove(path);
    return 0;
}
