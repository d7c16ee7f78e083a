#include "ui/shell/TidloApp.h"

#include "platform/Bundle.h"
#include "platform/HomeFolder.h"
#include "platform/QuitLimit.h"
#include "ui/design/Motion.h"
#include "ui/design/TidloTheme.h"
#include "ui/design/TidloType.h"
#include "ui/shell/StandardMenus.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QScreen>

// Written by the build; in static libraries nothing else calls them.
void qml_register_types_Tidlo_Design();
void qml_register_types_Tidlo_Screens();
void qml_register_types_Tidlo_Shell();

namespace tidlo {

namespace {

/// The one that \a engine has of a type of Tidlo.Design.
template <typename Token>
Token &tokenOf(QQmlEngine &engine, const char *name)
{
    return *engine.singletonInstance<Token *>(qmlTypeId("Tidlo.Design", 1, 0, name));
}

std::optional<ColorScheme> wishedScheme(const DesktopWishes &wishes)
{
    if (!wishes.isDark)
        return std::nullopt;
    return *wishes.isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace

void registerQmlModules()
{
    qml_register_types_Tidlo_Design();
    qml_register_types_Tidlo_Screens();
    qml_register_types_Tidlo_Shell();
}

TidloApp::TidloApp(AppEnvironment environment)
    : TidloApp(std::make_unique<AppViewModel>(std::move(environment)))
{}

TidloApp::TidloApp(std::unique_ptr<AppViewModel> model)
    : app(std::move(model))
{
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/logo.png")));
    registerQmlModules();
    engine.addImportPath(QStringLiteral(":/qt/qml"));
}

TidloApp::~TidloApp() = default;

bool TidloApp::open()
{
    engine.setInitialProperties({{QStringLiteral("shown"), QVariant::fromValue(&shown)},
                                 {QStringLiteral("screenRoom"), QGuiApplication::primaryScreen()->availableSize()}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tidlo/Shell/TidloApp.qml")));
    if (!window())
        return false;
    app->beginFirstRun();
    return true;
}

void TidloApp::heed(const DesktopWishes &wishes)
{
    auto &motion = tokenOf<Motion>(engine, "Motion");
    auto &theme = tokenOf<TidloTheme>(engine, "TidloTheme");
    motion.setReduced(wishes.reducedMotion);
    tokenOf<TidloType>(engine, "TidloType").setScale(wishes.textScale);
    theme.setMotion(motion.theme());
    theme.setHighContrast(wishes.higherContrast);
    theme.setDesktopScheme(wishedScheme(wishes));
}

QQuickWindow *TidloApp::window() const
{
    const QList<QObject *> roots = engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(roots.constFirst());
}

int runTidlo(int argumentCount, char **arguments)
{
    settleHome();
    QuitLimit limit; // Destroyed after the application, whose end it limits too.
    QGuiApplication application(argumentCount, arguments);
    QGuiApplication::setApplicationName(QLatin1StringView(applicationIdentifier)); // Names the folder of its cache.
    QGuiApplication::setDesktopFileName(QLatin1StringView(applicationIdentifier));
    addStandardMenus();
    QObject::connect(&application, &QCoreApplication::aboutToQuit, [&limit] { limit.begin(quitLimit, EXIT_SUCCESS); });
    int status = EXIT_FAILURE;
    std::weak_ptr<const void> operations;
    {
        TidloApp tidlo;
        // Before the window is made, so that the answer is there when it is shown.
        const auto desktop = followDesktop([&tidlo](const DesktopWishes &wishes) { tidlo.heed(wishes); });
        operations = tidlo.model().operations();
        if (tidlo.open())
            status = QGuiApplication::exec();
    }
    while (!operations.expired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return status;
}

} // namespace tidlo
