#include "cli/CommandLine.h"
#include "cli/Output.h"
#include "cli/PathArgument.h"
#include "platform/HomeFolder.h"
#include "platform/QuitLimit.h"

#include <QCoreApplication>
#include <QEvent>

#include <clocale>

#include <langinfo.h>

namespace tidlo {

/// Qt needs a UTF-8 locale, and otherwise writes a warning to standard error, as in many containers.
static void chooseUtf8()
{
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
}

} // namespace tidlo

int main(int argc, char *argv[])
{
    using namespace tidlo;
    holdStandardStreams();
    chooseUtf8();
    if (const auto ignored = settleHome())
        complain(QStringLiteral("$HOME is not an absolute path and is ignored: ") + QString::fromLocal8Bit(*ignored));
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(argumentText(argv[i]));

    QuitLimit limit; // Destroyed after the application, so that it limits the application's end too.
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TIDLO_VERSION));

    const std::shared_ptr<FileManager> files = makeFileManager();
    FileSizeScanner scanner(files);
    UserDefaults defaults;
    CommandContext context{.files = *files, .scanner = scanner, .defaults = defaults};
    const int status = static_cast<int>(runCommandLine(arguments, context));
    limit.begin(quitLimit, status);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // No event loop will do it any more.
    return status;
}
