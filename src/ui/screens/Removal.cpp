#include "ui/screens/Removal.h"

#include "platform/RemovalCommand.h"
#include "platform/VisibleText.h"

namespace tidlo {

Removal::Removal(AppViewModel &app, QObject *parent)
    : QObject(parent)
    , owner(app)
{
    inspect();
}

QString Removal::message() const
{
    if (isBundle)
        return QStringLiteral(
            "Tidlo will quit, move the app to Trash, and remove its preferences and saved setup state.");
    const QString rest = QStringLiteral("\n\nTidlo itself can quit and remove your preferences and caches.");
    if (command.isEmpty())
        return QStringLiteral("This copy is not installed: delete it where you keep it.") + rest;
    return QStringLiteral(
               "Tidlo was installed as a package. This command in a terminal removes it for everybody:\n\n") +
           command + rest;
}

QString Removal::action() const
{
    return isBundle ? QStringLiteral("Uninstall completely") : QStringLiteral("Remove preferences");
}

void Removal::inspect()
{
    const Bundle bundle = owner.bundle();
    isBundle = bundle.isApplication();
    command = isBundle ? QString() : visibleText(removalCommandBeside(bundle.executable));
    Q_EMIT changed();
}

void Removal::carryOut()
{
    if (isBundle)
        owner.uninstallTidloCompletely();
    else
        owner.removePreferencesAndCaches();
}

} // namespace tidlo
