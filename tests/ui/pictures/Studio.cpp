#include "ui/pictures/Studio.h"

#include "support/WaitUntil.h"
#include "ui/DemoState.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

namespace tidlo {

namespace {

constexpr std::chrono::milliseconds frame(50);
constexpr std::chrono::milliseconds longestMotion(1500);

AppEnvironment studioEnvironment(const QString &theme, const QString &folder)
{
    AppEnvironment environment = demoEnvironment(QFile::encodeName(folder));
    environment.defaults->set(UserDefaults::theme, theme);
    environment.defaults->set(UserDefaults::setupCompleted, true);
    return environment;
}

} // namespace

Studio::Studio(const QString &theme, QSize size)
    : model(new OpenModel(studioEnvironment(theme, folder.path())))
    , application(std::unique_ptr<AppViewModel>(model))
{
    QGuiApplication::styleHints()->setCursorFlashTime(0); // The cursor does not follow the stepped clock.
    bool isDiskRead = false;
    QObject::connect(model, &AppViewModel::totalsChanged, &time, [&isDiskRead] { isDiskRead = true; });
    if (!application.open())
        qFatal("There is no window to take pictures of.");
    application.window()->resize(size);
    application.window()->requestActivate(); // There is no window manager to do it.
    waitUntil([&isDiskRead] { return isDiskRead; });
    model->disconnect(&time);
}

QImage Studio::picture(const Shot &shot)
{
    show(shot.prepare);
    return pictureAfter(longestMotion);
}

void Studio::show(const std::function<void(OpenModel &, QQuickWindow &)> &prepare)
{
    prepare(*model, *application.window());
}

QImage Studio::pictureAfter(std::chrono::milliseconds motion)
{
    for (auto past = std::chrono::milliseconds::zero(); past < motion; past += frame) {
        QCoreApplication::processEvents();
        time.step(frame);
    }
    QCoreApplication::processEvents();
    return application.window()->grabWindow();
}

} // namespace tidlo
