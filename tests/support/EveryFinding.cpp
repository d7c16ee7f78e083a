#include "support/EveryFinding.h"

#include <cstdlib>

#include <unistd.h>

namespace tidlo {

void addEveryFinding(const TemporaryHome &home)
{
    const FileTime old =
        std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()) - std::chrono::days(61);
    home.file("Sites/web/package.json");
    home.file("Sites/web/composer.json");
    home.file("Sites/web/node_modules/x");
    home.file("Sites/web/vendor/x");
    home.file("Sites/web/dist/x");
    home.file("Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media/x");
    home.file("Library/Caches/net.whatsapp.WhatsApp/x");
    home.file(".cache/x");
    home.file("Downloads/old.zip");
    home.setModified("Downloads/old.zip", old);
    if (truncate(home.file("Music/large").constData(), 104'857'600) != 0)
        std::abort();
    home.setModified("Music/large", old);
    home.folder("Sites/localhost/shop");
    home.file("Sites/localhost/shop copy/x");
    home.setModified("Sites/localhost/shop copy", old);
}

} // namespace tidlo
