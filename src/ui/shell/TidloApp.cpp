#include "ui/shell/TidloApp.h"

#include "app/FirstRun.h"
#include "platform/ApplicationIdentifier.h"
#include "platform/HomeFolder.h"
#include "platform/QuitLimit.h"
#include "ui/design/DesignSystem.h"
#include "ui/screens/ContentViews.h"
#include "ui/shell/RootView.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QScreen>

namespace tidlo {

namespace {

/// A scan or a move that a file system holds up for longer is left to it: at every moment an item is whole at its place
/// or in the Trash.
constexpr std::chrono::milliseconds quitLimit(700);

} // namespace

TidloApp::TidloApp(AppEnvironment given)
    : environment(std::move(given))
{
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/logo.png")));
    useDesignSystem();
    useContentViews();
    useShell();
    engine.addImportPath(QStringLiteral(":/qt/qml"));
}

TidloApp::~TidloApp() = default;

bool TidloApp::open()
{
    engine.setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(&app)},
                                 {QStringLiteral("preferences"), QVariant::fromValue(&preferences)},
                                 {QStringLiteral("screenRoom"), QGuiApplication::primaryScreen()->availableSize()}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tidlo/Shell/TidloApp.qml")));
    if (!window())
        return false;
    beginFirstRun(app);
    return true;
}

QQuickWindow *TidloApp::window() const
{
    const QList<QObject *> roots = engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(roots.constFirst());
}

int runTidlo(int argumentCount, char **arguments)
{
    settleHome();
    QuitLimit limit; // Goes after the application, whose end it bounds too.
    QGuiApplication application(argumentCount, arguments);
    QGuiApplication::setApplicationName(QLatin1StringView(applicationIdentifier)); // Names the folder of its cache.
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tidlo"));
    QGuiApplication::setDesktopFileName(QLatin1StringView(applicationIdentifier));
    int status = 1;
    std::weak_ptr<const void> operations;
    {
        TidloApp tidlo;
        operations = tidlo.model().operations();
        if (tidlo.open())
            status = QGuiApplication::exec();
        limit.begin(quitLimit, status);
    }
    while (!operations.expired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return status;
}

} // namespace tidlo
