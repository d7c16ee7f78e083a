#include "ui/SteppedTime.h"
#include "ui/shell/TidloApp.h"
#include "ui/views/Demo.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QTimer>
#include <QtQuickTest>

namespace tidlo {

/// Gives every file of tests an engine with the application's modules and a "demo" of its own. What moves does so in
/// the steps of a slow frame rate, but ten times as fast as for people.
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
