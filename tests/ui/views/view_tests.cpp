#include "ui/shell/TidloApp.h"
#include "ui/views/Demo.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

namespace tidlo {

/// Gives every file of tests an engine with the application's modules and a "demo" of its own.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        registerQmlModules();
        engine->addImportPath(QStringLiteral(":/qt/qml"));
        demo = std::make_unique<Demo>();
        engine->rootContext()->setContextProperty(QStringLiteral("demo"), demo.get());
    }

    void cleanupTestCase() { demo.reset(); }

private:
    std::unique_ptr<Demo> demo;
};

} // namespace tidlo

QUICK_TEST_MAIN_WITH_SETUP(views, tidlo::Setup)

#include "view_tests.moc"
