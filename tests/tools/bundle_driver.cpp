// Does what a person does with the bundle that contains it: bundle_driver uninstall | place <destination>

#include "app/AppViewModel.h"

#include <QCoreApplication>

#include <cstdio>

int main(int count, char **arguments)
{
    using namespace tidlo;
    const QCoreApplication application(count, arguments);
    const bool isPlacing = count == 3;
    AppEnvironment environment;
    if (isPlacing)
        environment.applicationPath = arguments[2];
    AppViewModel model(environment);
    QObject::connect(&model, &AppViewModel::showMoveToApplicationsErrorChanged, [&] {
        std::puts(qPrintable(model.moveToApplicationsErrorMessage()));
        QCoreApplication::exit(1);
    });
    QMetaObject::invokeMethod(
        &model, isPlacing ? &AppViewModel::moveToApplicationsFolder : &AppViewModel::uninstallTidloCompletely,
        Qt::QueuedConnection);
    return QCoreApplication::exec();
}
