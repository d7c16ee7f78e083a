#include "ui/SteppedTime.h"
#include "ui/shell/TidloApp.h"
#include "ui/views/Demo.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QTimer>
#include <QtQuickTest>

namespace tidlo {

/// Gives each test file an engine with the application's modules and its own "demo". Animations run at a slow frame
/// rate, but ten times as fast as for people.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        using namespace std::chrono_literals;
        QObject::connect(&ticks, &QTimer::timeout, this, [this] { time->step(50ms); });
        QObject::connect(time.get(), &QAnimationDriver::started, &ticks, [this] { ticks.start(5ms); });
        QObject::connect(time.get(), &QAnimationDriver::stopped, &ticks, &QTimer::stop);
        registerQmlModules();
        engine->addImportPath(QStringLiteral(":/qt/qml"));
        demo = std::make_unique<Demo>();
        engine->rootContext()->setContextProperty(QStringLiteral("demo"), demo.get());
    }

    void cleanupTestCase()
    {
        demo.reset();
        time.reset();
    }

private:
    std::unique_ptr<SteppedTime> time = std::make_unique<SteppedTime>();
    QTimer ticks;
    std::unique_ptr<Demo> demo;
};

} // namespace tidlo

QUICK_TEST_MAIN_WITH_SETUP(views, tidlo::Setup)

#include "view_tests.moc"
