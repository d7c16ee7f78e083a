#include "ui/shell/RootView.h"

void qml_register_types_Tidlo_Shell(); // Written by the build; in a static library nothing else calls it.

namespace tidlo {

void useShell()
{
    qml_register_types_Tidlo_Shell();
}

} // namespace tidlo
